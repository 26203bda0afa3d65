// tevra: the window program.
#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <csignal>

#include "app/tevra/MessageBoxes.h"
#include "platform/data/Connection.h"
#include "platform/system/MessageBox.h"
#include "platform/system/QtSettings.h"
#include "platform/system/StandardError.h"
#include "reports/frmRapCHE.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/Version.h"

namespace {

using namespace tevra;

// The session of the first company of a directory, as its administrator.
bool OpenCompany(const std::string& directory) {
  Session& session = CurrentSession();
  session.databasesPath = directory;
  session.selectedDatabase = "Kelnar01.mdb";
  session.userName = "admin";
  session.connectionString = CompanyConnectionString(directory, session.selectedDatabase);
  Procedure procedure{"Main", "Module", "Module1", 1};
  try {
    LoadParametri();
    return true;
  } catch (const Failure& failure) {
    ShowStandardError(failure, procedure);
    return false;
  }
}

}  // namespace

int main(int argc, char** argv) {
  // A file size limit is an error of the write, as a full disk is, and no reason to die.
  std::signal(SIGXFSZ, SIG_IGN);
  QApplication application(argc, argv);
  QApplication::setApplicationName("tevra");
  QApplication::setApplicationDisplayName(kApplicationTitle);
  SetSettings(std::make_unique<QtSettings>());
  QLocale::setDefault(QLocale(QLocale::Romanian, QLocale::Romania));
  SetApplicationTitle(kApplicationTitle);
  SetMessageHandler(ShowMessageBox);

  QCommandLineParser parser;
  parser.setApplicationDescription("Evidenta imobilizarilor si a obiectelor de inventar");
  const QCommandLineOption directory("dir", "Directorul societatii.", "director", ".");
  parser.addOption(directory);
  parser.addHelpOption();
  parser.process(application);

  if (!OpenCompany(parser.value(directory).toStdString())) return 1;
  frmRapCHE screen;
  screen.show();
  return QApplication::exec();
}
