// Reads comma separated values row by row.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace tevra {

struct CsvCell {
  std::string text;
  bool quoted = false;  ///< was in double quotes, so that an empty cell is an empty text
};

/// Cells may be quoted (with "" for a quote) and may then contain line breaks, which are kept
/// unchanged. LF or CRLF ends a row. A byte order mark at the start and empty lines are
/// skipped.
class CsvReader {
 public:
  explicit CsvReader(std::istream& in) : in_(in) {}

  /// The next row, or nothing at the end. Throws Failure 13 for a quote that is not closed or is
  /// not followed by a comma, 57 when the stream cannot be read to its end.
  std::optional<std::vector<CsvCell>> Next();

  /// The line of the file on which the last row began, from 1.
  int Line() const { return rowLine_; }

 private:
  int Get();
  int GetOutsideQuotes();
  void RequireReadable() const;
  void SkipByteOrderMark();
  CsvCell ReadCell(int& end);

  std::istream& in_;
  int line_ = 1;
  int rowLine_ = 1;
  bool started_ = false;
  std::string ahead_;  // read while looking for a byte order mark
  std::size_t at_ = 0;
};

/// A cell as it is written: quoted where it must be.
std::string CsvText(const std::string& text);

}  // namespace tevra
