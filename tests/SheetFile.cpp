#include "tests/SheetFile.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <stdexcept>

namespace tevra::test {

std::map<std::string, std::string> CellsOf(const std::filesystem::path& sheet) {
  const QTemporaryDir folder;
  QProcess unpack;
  unpack.setWorkingDirectory(folder.path());
  // In the locale "C" cmake takes no name with diacritics.
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("LC_ALL", "C.UTF-8");
  unpack.setProcessEnvironment(environment);
  unpack.start("cmake", {"-E", "tar", "xf", QString::fromStdString(sheet.string())});
  QFile file(folder.filePath("xl/worksheets/sheet1.xml"));
  if (!unpack.waitForFinished() || unpack.exitCode() != 0 || !file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("not unpacked: " + sheet.string());
  }
  QXmlStreamReader xml(&file);
  std::map<std::string, std::string> cells;
  std::string at;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == QString("c")) at = xml.attributes().value("r").toString().toStdString();
    if (xml.name() == QString("v") || xml.name() == QString("t")) {
      cells[at] += xml.readElementText().toStdString();
    } else if (xml.name() == QString("f")) {
      cells[at] += "f:" + xml.readElementText().toStdString() + " ";
    }
  }
  if (xml.hasError()) throw std::runtime_error("damaged: " + sheet.string());
  return cells;
}

}  // namespace tevra::test
