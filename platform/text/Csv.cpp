#include "platform/text/Csv.h"

#include "platform/text/Failure.h"

namespace tevra {

int CsvReader::Get() {
  if (!started_) SkipByteOrderMark();
  if (at_ < ahead_.size()) return static_cast<unsigned char>(ahead_[at_++]);
  const int c = in_.get();
  if (c == '\n') ++line_;
  return c;
}

int CsvReader::GetOutsideQuotes() {
  const int c = Get();
  return c == '\r' && in_.peek() == '\n' ? Get() : c;
}

// A file that cannot be read to its end must not look like a shorter one.
void CsvReader::RequireReadable() const {
  if (in_.bad()) throw Failure(kDeviceError, "Device I/O error");
}

// A pipe cannot be read twice, so bytes that are no mark are kept for the first cell.
void CsvReader::SkipByteOrderMark() {
  static const std::string kMark = "\xEF\xBB\xBF";
  started_ = true;
  while (ahead_.size() < kMark.size() &&
         in_.peek() == static_cast<unsigned char>(kMark[ahead_.size()])) {
    ahead_ += static_cast<char>(in_.get());
  }
  if (ahead_ == kMark) ahead_.clear();
}

// Sets `end` to the character after the cell: a comma, a line break or the end of the file.
CsvCell CsvReader::ReadCell(int& end) {
  CsvCell cell;
  int c = GetOutsideQuotes();
  if (c == '"') {
    cell.quoted = true;
    for (c = Get();; c = Get()) {
      if (c == std::istream::traits_type::eof()) {
        RequireReadable();
        throw Failure(kTypeMismatch, "Type mismatch: ghilimele neinchise");
      }
      if (c == '"' && (c = GetOutsideQuotes()) != '"') break;
      cell.text += static_cast<char>(c);
    }
    if (c != ',' && c != '\n' && c != std::istream::traits_type::eof()) {
      while (c != '\n' && c != std::istream::traits_type::eof()) c = Get();
      throw Failure(kTypeMismatch, "Type mismatch: text dupa ghilimelele de inchidere");
    }
  } else {
    for (; c != ',' && c != '\n' && c != std::istream::traits_type::eof(); c = GetOutsideQuotes()) {
      cell.text += static_cast<char>(c);
    }
  }
  RequireReadable();
  end = c;
  return cell;
}

std::optional<std::vector<CsvCell>> CsvReader::Next() {
  for (;;) {
    if (!started_) SkipByteOrderMark();
    const bool done = in_.peek() == std::istream::traits_type::eof();
    RequireReadable();
    if (done && at_ == ahead_.size()) return std::nullopt;
    rowLine_ = line_;
    std::vector<CsvCell> row;
    int end = 0;
    do {
      row.push_back(ReadCell(end));
    } while (end == ',');
    const bool empty = row.size() == 1 && row[0].text.empty() && !row[0].quoted;
    if (!empty) return row;
  }
}

std::string CsvText(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

}  // namespace tevra
