#include "tests/print/RegisterDocument.h"

#include <QPainter>

#include "platform/print/CellText.h"
#include "platform/text/Failure.h"

namespace tevra::test {
namespace {

class Lines : public DocumentRows {
 public:
  explicit Lines(int rows) : rows_(rows) {}

  const std::vector<ExportColumn>& Columns() const override { return columns_; }
  std::size_t Count() const override { return static_cast<std::size_t>(rows_); }
  bool Next(Values& row) override {
    if (next_ == rows_) return false;
    row = {"MF " + std::to_string(next_), next_ + 0.5, DateTime(2026, 3, 1 + next_ % 28)};
    ++next_;
    return true;
  }

 private:
  std::vector<ExportColumn> columns_{
      {"Denumire"},
      {"Valoare", "Standard", FieldType::Double, Qt::AlignRight, true},
      {"Data", "dd.MM.yyyy", FieldType::DateTime, Qt::AlignHCenter}};
  int rows_;
  int next_ = 0;
};

}  // namespace

void RegisterDocument::LayOutMore() {
  if (!IsComplete() && laidOut_ < ready) ++laidOut_;
}

void RegisterDocument::PaintPage(QPainter& painter, int page) {
  ++painted[page];
  if (page == brokenPage) throw Failure(kStatementError, "pagina nu poate fi citita");
  const QRectF area = PrintArea();
  painter.setFont(PaperFont(11));
  const double height = area.height() / (kLines + 2);
  for (int line = 0; line < kLines; ++line) {
    const QRectF place(area.left(), area.top() + line * height, area.width(), height);
    const QString text =
        QString("Mijlocul fix %1 de pe pagina %2").arg(page * kLines + line).arg(page + 1);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, text);
  }
  painter.drawText(area, Qt::AlignRight | Qt::AlignBottom,
                   foot + (IsComplete() ? QString(" din %1 pagini").arg(pages_) : QString()));
}

std::unique_ptr<DocumentRows> RegisterDocument::Rows() {
  return std::make_unique<Lines>(pages_ * kLines);
}

}  // namespace tevra::test
