#include "platform/where/ClauseParts.h"

namespace tevra::clause {

namespace {
constexpr char kEscape = '!';
// The last character there is: no text goes on with it.
constexpr const char* kLastCharacter = "\xF4\x8F\xBF\xBF";
}  // namespace

std::string FromTo(const std::string& field) {
  return field + " >= ? AND " + field + " <= ?";
}

std::string Begins(const std::string& field) {
  return field + " >= ? AND " + field + " < ?";
}

Values PrefixBounds(const std::string& prefix) {
  return {prefix, prefix + kLastCharacter};
}

std::string Contains(const std::string& field) {
  return field + " LIKE ? ESCAPE '" + kEscape + "'";
}

std::string ContainsPattern(const std::string& part) {
  std::string pattern = "%";
  for (const char c : part) {
    if (c == '%' || c == '_' || c == kEscape) pattern += kEscape;
    pattern += c;
  }
  return pattern + "%";
}

std::string Empty(const std::string& field, bool isText) {
  if (!isText) return field + " IS NULL";
  return "(" + field + " IS NULL OR " + field + " = '')";
}

}  // namespace tevra::clause
