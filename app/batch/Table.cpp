#include "app/batch/Table.h"

#include <algorithm>
#include <utility>

#include "platform/data/CsvCell.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra::batch {

namespace {

constexpr const char* kGap = "  ";

// A line break or an escape character in a name would break the columns.
std::string OnOneLine(std::string text) {
  constexpr unsigned char kDelete = 127;
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == kDelete; }, ' ');
  return text;
}

std::string Shown(const Value& value) {
  switch (value.GetKind()) {
    case Value::Kind::Null:
      return {};
    case Value::Kind::Double:
      return Format(value.AsDouble(), "Standard");
    case Value::Kind::DateTime:
      return ShortDate(value.AsDateTime());
    default:
      return OnOneLine(value.AsText());
  }
}

}  // namespace

TextTable::TextTable(std::vector<Column> columns)
    : columns_(std::move(columns)), widths_(columns_.size()) {
  Start();
}

void TextTable::WriteInTwoPasses(std::vector<Column> columns, std::ostream& out,
                                 const std::function<void(TextTable& table)>& give) {
  TextTable table(std::move(columns));
  table.lines_.clear();
  table.holdsLines_ = false;
  give(table);
  table.out_ = &out;
  table.Start();
  give(table);
}

void TextTable::Start() {
  std::vector<std::string> captions;
  for (const Column& column : columns_) captions.push_back(column.caption);
  Add({Kind::Row, std::move(captions)});
  AddRule();
}

void TextTable::Add(Line line) {
  if (out_) return WriteLine(*out_, line);
  if (line.kind == Kind::Row) {
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      widths_[i] = std::max(widths_[i], Len(line.cells[i]));
    }
  }
  if (holdsLines_) lines_.push_back(std::move(line));
}

void TextTable::AddRow(const Values& values) {
  std::vector<std::string> cells;
  cells.reserve(values.size());
  for (const Value& value : values) cells.push_back(Shown(value));
  Add({Kind::Row, std::move(cells)});
}

void TextTable::AddHeading(const std::string& text) {
  Add({Kind::Heading, {OnOneLine(text)}});
}

void TextTable::AddRule() {
  Add({Kind::Rule, {}});
}

void TextTable::WriteRow(std::ostream& out, const std::vector<std::string>& cells) const {
  std::string row;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::string blanks(widths_[i] - Len(cells[i]), ' ');
    if (i > 0) row += kGap;
    row += columns_[i].right ? blanks + cells[i] : cells[i] + blanks;
  }
  row.erase(row.find_last_not_of(' ') + 1);
  out << row << '\n';
}

void TextTable::WriteLine(std::ostream& out, const Line& line) const {
  switch (line.kind) {
    case Kind::Row:
      WriteRow(out, line.cells);
      break;
    case Kind::Heading:
      out << line.cells.front() << '\n';
      break;
    case Kind::Rule: {
      std::vector<std::string> dashes;
      for (const std::size_t width : widths_) dashes.emplace_back(width, '-');
      WriteRow(out, dashes);
      break;
    }
  }
}

void TextTable::Write(std::ostream& out) const {
  for (const Line& line : lines_) WriteLine(out, line);
}

void CsvWriter::WriteRow(const Values& values) {
  const char* separator = "";
  for (const Value& value : values) {
    out_ << std::exchange(separator, ",") << CsvCellOf(value);
  }
  out_ << '\n';
}

}  // namespace tevra::batch
