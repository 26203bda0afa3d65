// Prints results as rows: in columns for people, or as CSV for other programs.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/data/Value.h"

namespace tevra::batch {

/// Columns are as wide as their content. Numbers with decimals are shown as money (1.234,50), dates
/// as 31.12.2006, Null as blank. Write prints everything, because the last row may be the widest.
class TextTable {
 public:
  struct Column {
    std::string caption;
    bool right = false;  ///< aligned to the right
  };

  /// Starts with the captions and a rule.
  explicit TextTable(std::vector<Column> columns);

  /// For more rows than memory should hold: `give` adds all of them, and is called twice, first
  /// only for the widths.
  static void WriteInTwoPasses(std::vector<Column> columns, std::ostream& out,
                               const std::function<void(TextTable& table)>& give);

  void AddRow(const Values& values);         ///< one value for each column
  void AddHeading(const std::string& text);  ///< across all columns
  void AddRule();
  void Write(std::ostream& out) const;

 private:
  enum class Kind { Row, Heading, Rule };
  struct Line {
    Kind kind;
    std::vector<std::string> cells;
  };

  void Start();
  void Add(Line line);
  void WriteLine(std::ostream& out, const Line& line) const;
  void WriteRow(std::ostream& out, const std::vector<std::string>& cells) const;

  std::vector<Column> columns_;
  std::vector<std::size_t> widths_;  // in characters
  std::vector<Line> lines_;
  bool holdsLines_ = true;
  std::ostream* out_ = nullptr;  // where lines go at once
};

/// Writes each row at once: numbers with a decimal point and all their digits, dates as 2006-12-31,
/// Null as an empty cell, texts quoted where necessary.
class CsvWriter {
 public:
  explicit CsvWriter(std::ostream& out) : out_(out) {}
  void WriteRow(const Values& values);

 private:
  std::ostream& out_;
};

}  // namespace tevra::batch
