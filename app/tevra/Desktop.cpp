#include "app/tevra/Desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "platform/system/Desktop.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "session/frmMsgBox.h"

namespace tevra {

namespace {

// "KELNAR.MDB|*MDB" as a Qt filter; names match without case.
QString NameFilter(const std::string& written) {
  QStringList filters;
  const QStringList parts = QString::fromStdString(written).split('|');
  for (int i = 0; i + 1 < parts.size(); i += 2) {
    filters << QString("%1 (%2 %3)").arg(parts[i], parts[i + 1].toUpper(), parts[i + 1].toLower());
  }
  return filters.join(";;");
}

std::optional<std::string> ChooseFile(const OpenFileRequest& request) {
  const QString chosen = QFileDialog::getOpenFileName(
      QApplication::activeWindow(), QString::fromStdString(request.title),
      QString::fromStdString(request.directory), NameFilter(request.filter));
  if (chosen.isEmpty()) return std::nullopt;
  return chosen.toStdString();
}

QString Typed(const QString& name, const QString& extension) {
  return QFileInfo(name).suffix().isEmpty() ? name + "." + extension : name;
}

// The dialog's own question is in the desktop's language, so ours is asked, with the completed
// name.
bool MayReplace(const QString& file) {
  if (!QFileInfo::exists(file)) return true;
  const QString question =
      QString("Fisierul %1 exista deja ! Doriti sa il inlocuiti ?").arg(QFileInfo(file).fileName());
  return ShowMessage({question.toStdString(), kYesNo + kQuestion + kDefaultStep, "Salvare", {}}) ==
         kYes;
}

// The folder of the last saved file; at first the user's documents.
QString& SavingFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  static QString folder = QFileInfo(documents).isDir() ? documents : QDir::homePath();
  return folder;
}

std::optional<std::string> ChooseNewFile(const SaveFileRequest& request) {
  QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(request.title),
                     SavingFolder(), NameFilter(request.filter));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setLabelText(QFileDialog::LookIn, "Folder:");
  dialog.setLabelText(QFileDialog::FileName, "Nume fisier:");
  dialog.setLabelText(QFileDialog::FileType, "Tip:");
  dialog.setLabelText(QFileDialog::Accept, "Salveaza");
  dialog.setLabelText(QFileDialog::Reject, "Renunta");
  dialog.selectFile(QString::fromStdString(request.name));
  while (dialog.exec() == QDialog::Accepted) {
    const QString chosen =
        Typed(dialog.selectedFiles().value(0), QString::fromStdString(request.extension));
    if (!MayReplace(chosen)) continue;
    SavingFolder() = QFileInfo(chosen).absolutePath();
    return chosen.toStdString();
  }
  return std::nullopt;
}

// The desktop's program for a kind of files; empty when there is none.
QString ViewerOf(const QString& kind) {
  QProcess query;
  query.start("xdg-mime", {"query", "default", kind});
  if (!query.waitForFinished(3000)) return {};
  return QString::fromUtf8(query.readAllStandardOutput()).trimmed();
}

// The same pages as HTML, for a desktop that cannot show the help file.
QString PagesInsteadOf(const QString& file) {
  const QFileInfo help(file);
  if (help.suffix().toLower() != "chm") return file;
  if (help.exists() && !ViewerOf("application/vnd.ms-htmlhelp").isEmpty()) return file;
  const QString pages = help.absolutePath() + "/ghid/index.html";
  return QFileInfo::exists(pages) ? pages : file;
}

void View(const std::string& file) {
  const QString shown = PagesInsteadOf(QString::fromStdString(paths::Resolve(file).string()));
  if (!QFileInfo::exists(shown)) throw FileFailure(kFileNotFound, shown.toStdString());
  const QString opener = QStandardPaths::findExecutable("xdg-open");
  const bool started = opener.isEmpty() ? QDesktopServices::openUrl(QUrl::fromLocalFile(shown))
                                        : QProcess::startDetached(opener, {shown});
  if (!started) {
    throw Failure(kFileNotFound,
                  "Nu exista un program care sa afiseze fisierul: " + shown.toStdString());
  }
}

}  // namespace

void UseDesktop() {
  SetMessageHandler(ShowMsgBox);
  SetOpenFileHandler(ChooseFile);
  SetSaveFileHandler(ChooseNewFile);
  SetViewerHandler(View);
}

}  // namespace tevra
