#include "tests/print/PdfText.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <stdexcept>

namespace tevra::test {
namespace {

QString Read(const QStringList& arguments, const std::filesystem::path& pdf) {
  QProcess reader;
  reader.start("pdftotext", arguments + QStringList{QString::fromStdString(pdf.string()), "-"});
  if (!reader.waitForFinished() || reader.exitCode() != 0) {
    throw std::runtime_error("not read: " + pdf.string() + reader.readAllStandardError().data());
  }
  return QString::fromUtf8(reader.readAllStandardOutput());
}

}  // namespace

std::vector<QString> PagesOf(const std::filesystem::path& pdf) {
  QStringList pages = Read({"-layout"}, pdf).split('\f');
  pages.removeLast();  // behind the last page's end
  return {pages.begin(), pages.end()};
}

std::vector<Word> WordsOf(const std::filesystem::path& pdf) {
  static const QRegularExpression pattern(
      R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)</word>)re");
  std::vector<Word> words;
  auto matches = pattern.globalMatch(Read({"-bbox"}, pdf));
  while (matches.hasNext()) {
    const auto match = matches.next();
    const auto number = [&](int i) { return match.captured(i).toDouble(); };
    words.push_back(
        {match.captured(5), QRectF(QPointF(number(1), number(2)), QPointF(number(3), number(4)))});
  }
  return words;
}

QString InventoryNumber(int row) {
  return QString("INV-%1").arg(row, 6, 10, QChar('0'));
}

TableContent AssetList(int rows) {
  TableContent list;
  list.title = "Lista imobilizarilor";
  list.header = "REGISTRUL IMOBILIZARILOR";
  list.headerBold = true;
  list.footer = "Editat de Kelnar Tevra       \\tPagina: \\p din \\P";
  list.columns = {{"Nr.Crt.", 45, Qt::AlignRight, {}},
                  {"Numar de inventar", 80, Qt::AlignLeft, {}},
                  {"Denumire", 170, Qt::AlignLeft, "TOTAL"},
                  {"Valoare de amortizat LEI", 90, Qt::AlignRight, kTotal}};
  list.rows = rows;
  list.text = [](int row, int column) -> QString {
    switch (column) {
      case 0:
        return QString::number(row + 1);
      case 1:
        return InventoryNumber(row);
      case 2:
        return row % 5 == 1 ? "Strung carusel cu comanda numerica si magazie de scule, hala 3"
                            : "Calculator";
      default:
        return QString("%1.234,50").arg(row % 999 + 1);
    }
  };
  return list;
}

}  // namespace tevra::test
