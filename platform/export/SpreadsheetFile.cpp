#include "platform/export/SpreadsheetFile.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>

#include <locale.h>
#include <xlsxwriter.h>

#include "platform/data/MoneySum.h"
#include "platform/text/FailureText.h"

namespace tevra {

namespace {

constexpr double kWidest = 80;  // characters
// The calendar of spreadsheets is wrong before 1 March 1900.
constexpr double kFirstSureDay = 61;

// Translates the formats of our columns into those of a sheet.
std::string SheetFormat(const ExportColumn& column) {
  static const std::map<std::string, const char*> kFormats{
      {"Standard", "#,##0.00"}, {"Fixed", "0.00"},           {"Percent", "0.00%"},
      {"###,###", "#,##0"},     {"#.##0", "#,##0"},          {"#.##0,00", "#,##0.00"},
      {"General Number", ""},   {"dd.MM.yyyy", "dd.mm.yyyy"}};
  if (column.format.empty()) return column.type == FieldType::DateTime ? "dd.mm.yyyy" : "";
  const auto known = kFormats.find(column.format);
  return known == kFormats.end() ? column.format : known->second;
}

// At most 31 characters, without those that have a meaning in formulas.
std::string SheetName(const QString& title) {
  constexpr int kLongest = 31;
  QString name = title.simplified();
  name.remove(QRegularExpression("[\\[\\]:*?/\\\\']"));
  return name.left(kLongest).trimmed().toStdString();
}

// The sheet's library prints numbers by the process's locale, which the toolkit takes from the
// desktop: a Romanian one would put decimal commas into the file, which no program could read.
// While this stands, the thread writes decimal points.
class DecimalPoint {
 public:
  DecimalPoint() : before_(uselocale(Plain())) {}
  ~DecimalPoint() { uselocale(before_); }
  DecimalPoint(const DecimalPoint&) = delete;
  DecimalPoint& operator=(const DecimalPoint&) = delete;

 private:
  static locale_t Plain() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
  }

  locale_t before_;
};

Failure WriteFailure(lxw_error error, const std::filesystem::path& file) {
  const bool refused = error == LXW_ERROR_CREATING_XLSX_FILE;
  return FileFailure(refused ? kPermissionDenied : kDiskFull, file.string());
}

}  // namespace

struct SpreadsheetFile::Impl {
  struct Column {
    ExportColumn shown;
    lxw_format* format = nullptr;
    lxw_format* sumFormat = nullptr;
    MoneySum sum;
  };

  Impl(const std::filesystem::path& path, const QString& title,
       const std::vector<ExportColumn>& shown);
  ~Impl() {
    if (book) lxw_workbook_free(book);
  }

  lxw_format* NewFormat(const std::string& numbers, const ExportColumn& column);
  void WriteCaptions();
  void WriteCell(lxw_col_t at, const Value& value);
  void WriteBelow(lxw_col_t at, const Value& value);
  void WriteSums();

  std::filesystem::path file;
  lxw_workbook* book = nullptr;
  lxw_worksheet* sheet = nullptr;
  std::vector<Column> columns;
  lxw_row_t row = 0;  // the next one
};

SpreadsheetFile::Impl::Impl(const std::filesystem::path& path, const QString& title,
                            const std::vector<ExportColumn>& shown)
    : file(path) {
  const DecimalPoint point;
  lxw_workbook_options options{LXW_TRUE, nullptr, LXW_FALSE};
  book = workbook_new_opt(file.c_str(), &options);
  if (!book) throw Failure(kOutOfMemory, FailureText(kOutOfMemory));
  std::string documentTitle = title.toStdString();
  lxw_doc_properties properties{};
  properties.title = documentTitle.data();
  workbook_set_properties(book, &properties);
  const std::string name = SheetName(title);
  sheet = workbook_add_worksheet(book, name.empty() ? nullptr : name.c_str());
  if (!sheet) throw Failure(kOutOfMemory, FailureText(kOutOfMemory));
  for (const ExportColumn& each : shown) {
    Column column{each, nullptr, nullptr, {}};
    const std::string numbers = SheetFormat(each);
    column.format = NewFormat(numbers, each);
    column.sumFormat = NewFormat(numbers, each);
    format_set_bold(column.sumFormat);
    format_set_top(column.sumFormat, LXW_BORDER_THIN);
    columns.push_back(column);
  }
  WriteCaptions();
}

lxw_format* SpreadsheetFile::Impl::NewFormat(const std::string& numbers,
                                             const ExportColumn& column) {
  lxw_format* format = workbook_add_format(book);
  if (!numbers.empty()) format_set_num_format(format, numbers.c_str());
  if (column.alignment & Qt::AlignRight) format_set_align(format, LXW_ALIGN_RIGHT);
  if (column.alignment & Qt::AlignHCenter) format_set_align(format, LXW_ALIGN_CENTER);
  return format;
}

void SpreadsheetFile::Impl::WriteCaptions() {
  lxw_format* bold = workbook_add_format(book);
  format_set_bold(bold);
  format_set_text_wrap(bold);
  format_set_align(bold, LXW_ALIGN_VERTICAL_TOP);
  format_set_bottom(bold, LXW_BORDER_THIN);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto at = static_cast<lxw_col_t>(i);
    const double width = std::min(columns[i].shown.width, kWidest);
    if (width > 0) worksheet_set_column(sheet, at, at, width, nullptr);
    const std::string caption = columns[i].shown.caption.toStdString();
    worksheet_write_string(sheet, 0, at, caption.c_str(), bold);
  }
  worksheet_freeze_panes(sheet, 1, 0);
  worksheet_repeat_rows(sheet, 0, 0);
  worksheet_set_landscape(sheet);
  worksheet_set_paper(sheet, 9);  // A4
  row = 1;
}

// Writes the word for the value, or a number or date as such, or a text when a sheet has no such
// value.
void SpreadsheetFile::Impl::WriteCell(lxw_col_t at, const Value& value) {
  Column& column = columns[at];
  if (value.IsNull()) return;
  const Value::Kind kind = value.GetKind();
  const bool number =
      kind == Value::Kind::Whole || kind == Value::Kind::Double || kind == Value::Kind::DateTime;
  const bool word = !number || IsWord(value, column.shown.words);
  const double amount = word ? 0 : value.AsDouble();
  const bool fits =
      std::isfinite(amount) && (kind != Value::Kind::DateTime || amount >= kFirstSureDay);
  if (word || !fits) {
    const std::string text =
        ShownText(value, column.shown.format, column.shown.words).toStdString();
    worksheet_write_string(sheet, row, at, text.c_str(), column.format);
    return;
  }
  worksheet_write_number(sheet, row, at, amount, column.format);
  if (column.shown.footed) column.sum.Add(value);
}

void SpreadsheetFile::Impl::WriteBelow(lxw_col_t at, const Value& value) {
  lxw_format* format = columns[at].sumFormat;
  if (value.IsText()) {
    worksheet_write_string(sheet, row, at, value.Text().c_str(), format);
  } else {
    worksheet_write_number(sheet, row, at, value.AsDouble(), format);
  }
}

// Sums are formulas, so that they follow a filter in the sheet, and have their results stored for
// programs that do not calculate.
void SpreadsheetFile::Impl::WriteSums() {
  const lxw_row_t last = row - 1;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto at = static_cast<lxw_col_t>(i);
    if (!columns[i].shown.below.IsNull()) WriteBelow(at, columns[i].shown.below);
    if (!columns[i].shown.footed || last < 1) continue;
    char range[LXW_MAX_CELL_RANGE_LENGTH];
    lxw_rowcol_to_range(range, 1, at, last, at);
    const std::string formula = "=SUBTOTAL(109," + std::string(range) + ")";
    worksheet_write_formula_num(sheet, row, at, formula.c_str(), columns[i].sumFormat,
                                columns[i].sum.Total());
  }
  if (last >= 1 && !columns.empty()) {
    worksheet_autofilter(sheet, 0, 0, last, static_cast<lxw_col_t>(columns.size() - 1));
  }
}

SpreadsheetFile::SpreadsheetFile(const std::filesystem::path& file, const QString& title,
                                 const std::vector<ExportColumn>& columns)
    : impl_(std::make_unique<Impl>(file, title, columns)) {}

SpreadsheetFile::~SpreadsheetFile() = default;

void SpreadsheetFile::RequireRoom(std::size_t rows) {
  if (rows <= kMostRows) return;
  throw Failure(kOverflow, FailureText(kOverflow) + ": lista are mai multe randuri decat o foaie");
}

void SpreadsheetFile::AddRow(const Values& values) {
  RequireRoom(impl_->row);  // the first row has the captions
  const DecimalPoint point;
  for (std::size_t i = 0; i < values.size(); ++i) {
    impl_->WriteCell(static_cast<lxw_col_t>(i), values[i]);
  }
  ++impl_->row;
}

void SpreadsheetFile::Close() {
  const DecimalPoint point;
  impl_->WriteSums();
  const lxw_error error = workbook_close(std::exchange(impl_->book, nullptr));
  if (error != LXW_NO_ERROR) throw WriteFailure(error, impl_->file);
}

}  // namespace tevra
