#include "app/batch/monthend/Json.h"

#include <charconv>
#include <cmath>
#include <cstddef>

#include "platform/text/Strings.h"

namespace tevra::batch {

namespace {

void WriteEscaped(std::ostream& out, unsigned char c) {
  constexpr const char* kDigits = "0123456789abcdef";
  if (c == '"' || c == '\\') {
    out << '\\' << c;
  } else if (c == '\n') {
    out << "\\n";
  } else if (c < 0x20 || c == 0x7F) {
    out << "\\u00" << kDigits[c >> 4] << kDigits[c & 15];
  } else {
    out << c;
  }
}

// The length of the valid character at the beginning; 0 when there is none.
std::size_t CharacterAt(std::string_view text) {
  constexpr std::size_t kLongest = 4;
  for (std::size_t length = 1; length <= kLongest && length <= text.size(); ++length) {
    if (IsValidUtf8(text.substr(0, length))) return length;
  }
  return 0;
}

}  // namespace

void JsonWriter::Begin() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (!first_) out_ << ',';
  if (depth_ > 0) out_ << '\n' << std::string(2 * static_cast<std::size_t>(depth_), ' ');
  first_ = false;
}

JsonWriter& JsonWriter::Key(std::string_view name) {
  Text(name);
  out_ << ": ";
  afterKey_ = true;
  return *this;
}

void JsonWriter::Open(char bracket) {
  Begin();
  out_ << bracket;
  ++depth_;
  first_ = true;
}

void JsonWriter::Close(char bracket) {
  --depth_;
  if (!first_) out_ << '\n' << std::string(2 * static_cast<std::size_t>(depth_), ' ');
  out_ << bracket;
  first_ = false;
  if (depth_ == 0) out_ << '\n';
}

void JsonWriter::Text(std::string_view text) {
  Begin();
  out_ << '"';
  while (!text.empty()) {
    const std::size_t length = CharacterAt(text);
    if (length > 1) {
      out_ << text.substr(0, length);
    } else if (length == 1 || text.front() == '\0') {
      WriteEscaped(out_, static_cast<unsigned char>(text.front()));
    } else {
      out_ << "\uFFFD";
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  out_ << '"';
}

void JsonWriter::TextOrNull(std::string_view text) {
  if (text.empty()) return Null();
  Text(text);
}

void JsonWriter::Number(double value) {
  if (!std::isfinite(value)) return Null();
  Begin();
  char text[32];
  out_ << std::string_view(text, std::to_chars(text, text + sizeof text, value).ptr);
}

void JsonWriter::Bool(bool value) {
  Begin();
  out_ << (value ? "true" : "false");
}

void JsonWriter::Null() {
  Begin();
  out_ << "null";
}

}  // namespace tevra::batch
