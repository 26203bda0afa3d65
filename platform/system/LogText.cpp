#include "platform/system/LogText.h"

#include <algorithm>

#include "platform/text/FailureText.h"

namespace tevra::log {

namespace {

constexpr std::size_t kLongest = 4000;  // of a statement: those of the reports take a page

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsNamePart(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// Reads a statement once from its beginning to its end.
class LiteralHider {
 public:
  explicit LiteralHider(std::string_view statement) : text_(statement) {}

  std::string Run() {
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == '\'' || c == '"') {
        SkipQuoted(c);
      } else if (c == '#' && IsDate()) {
        SkipQuoted(c);
      } else if (c == '[') {
        CopyTo(text_.find(']', at_));
      } else if (IsDigit(c)) {
        SkipNumber();
      } else if (IsNamePart(c)) {
        CopyName();
      } else {
        out_ += text_[at_++];
      }
    }
    return out_;
  }

 private:
  // A doubled quote is part of the text.
  void SkipQuoted(char quote) {
    out_ += '?';
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] != quote) continue;
      if (at_ + 1 >= text_.size() || text_[at_ + 1] != quote) break;
      ++at_;
    }
    if (at_ < text_.size()) ++at_;
  }

  bool IsDate() const { return at_ + 1 < text_.size() && IsDigit(text_[at_ + 1]); }

  void SkipNumber() {
    out_ += '?';
    while (at_ < text_.size() && (IsNamePart(text_[at_]) || text_[at_] == '.')) {
      const bool exponent = text_[at_] == 'e' || text_[at_] == 'E';
      ++at_;
      const bool sign = at_ < text_.size() && (text_[at_] == '-' || text_[at_] == '+');
      if (exponent && sign) ++at_;
    }
  }

  void CopyName() {
    while (at_ < text_.size() && IsNamePart(text_[at_])) out_ += text_[at_++];
  }

  void CopyTo(std::size_t end) {
    const std::size_t after = end == std::string_view::npos ? text_.size() : end + 1;
    out_ += text_.substr(at_, after - at_);
    at_ = after;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::string out_;
};

bool IsFieldName(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= 'A' && c <= 'Z') || c == '_' || c == '.';
  });
}

// "Overflow: DALUNI" names a field, "Overflow: 1E+309" a value.
std::string WithoutValue(long number, const std::string& description) {
  const std::string words = FailureText(number);
  const std::size_t found = description.find(words);
  if (found == std::string::npos) return description.substr(0, description.rfind(": "));
  const std::size_t end = found + words.size();
  const bool field = number == kOverflow && description.size() > end + 2 &&
                     IsFieldName(std::string_view(description).substr(end + 2));
  return field ? description : description.substr(0, end);
}

std::string DescriptionOf(const Failure& failure) {
  const std::string description = failure.Description();
  switch (failure.Number()) {
    case kInvalidArgument:
    case kOverflow:
    case kTypeMismatch:
      return WithoutValue(failure.Number(), description);
    case kBadCriteria:
      return description.substr(0, description.find(": "));
    case kStatementError:
      return WithoutLiterals(description);
    default:
      return description;
  }
}

// A statement, a file or a routine; or an asset, whose code somebody typed.
std::string SourceOf(const Failure& failure) {
  const std::string& source = failure.Source();
  if (!source.empty() && source.front() == '/') return source;
  if (source.rfind("NRCRT ", 0) == 0) return source.substr(0, source.find(", COD "));
  return WithoutLiterals(std::string_view(source).substr(0, kLongest));
}

std::string OnOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 127; }, ' ');
  return text;
}

}  // namespace

std::string WithoutLiterals(std::string_view statement) {
  return LiteralHider(statement).Run();
}

std::string FailureLine(const Failure& failure) {
  std::string line = std::to_string(failure.Number()) + " " + DescriptionOf(failure);
  const std::string source = SourceOf(failure);
  if (!source.empty()) line += " | " + source;
  return OnOneLine(line);
}

}  // namespace tevra::log
