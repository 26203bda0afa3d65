#include "platform/text/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>

#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace tevra {
namespace {

constexpr std::array<double, 16> kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// The number of decimal digits that a double always preserves.
constexpr int kSignificantDigits = 15;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view Digits(std::string_view text, std::size_t from) {
  std::size_t end = from;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return text.substr(from, end - from);
}

/// Reads the whole part of a number, with or without "." between the groups, from `text` at `at`
/// and appends its digits. False when a group does not have three digits.
bool TakeWholePart(std::string_view text, std::size_t& at, std::string& digits) {
  const std::string_view first = Digits(text, at);
  digits += first;
  at += first.size();
  if (at == text.size() || text[at] != '.') return true;
  if (first.empty() || first.size() > 3 || first.front() == '0') return false;
  while (at < text.size() && text[at] == '.') {
    const std::string_view group = Digits(text, at + 1);
    if (group.size() != 3) return false;
    digits += group;
    at += 4;
  }
  return true;
}

/// The number of a text in Romanian form, rewritten with a decimal point and without separators.
std::optional<std::string> Rewritten(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  std::string number;
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
    if (text[at] == '-') number += '-';
    ++at;
  }
  const std::size_t signs = number.size();
  if (!TakeWholePart(text, at, number)) return std::nullopt;
  if (at < text.size() && text[at] == ',') {
    const std::string_view decimals = Digits(text, at + 1);
    at += 1 + decimals.size();
    if (number.size() == signs && decimals.empty()) return std::nullopt;
    number.append(".").append(decimals.empty() ? "0" : decimals);
  }
  if (number.size() == signs) return std::nullopt;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    number += 'e';
    ++at;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) number += text[at++];
    const std::string_view exponent = Digits(text, at);
    if (exponent.empty()) return std::nullopt;
    number += exponent;
    at += exponent.size();
  }
  if (at != text.size()) return std::nullopt;
  return number;
}

/// Reads a number written with a decimal point; `written` is what the user wrote, for the failure.
double Parsed(const std::string& number, std::string_view written) {
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc()) return value;
  // from_chars reports "out of range" for numbers that are too large and for those too close to 0.
  std::istringstream stream(number);
  stream.imbue(std::locale::classic());
  stream >> value;
  if (std::fabs(value) > 1) throw ValueFailure(kOverflow, written);
  return value;
}

template <typename Whole>
Whole ToWhole(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Whole>::max()))) {
    throw ValueFailure(kOverflow, CStr(value));
  }
  return static_cast<Whole>(rounded);
}

/// At most 15 significant digits, with a decimal point.
std::string PointText(double value) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, value + 0.0, std::chars_format::general,
                                 kSignificantDigits)
                       .ptr;
  std::string result(text, end);
  for (char& c : result) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - ('a' - 'A'));
  }
  return result;
}

}  // namespace

double Round0(double value) {
  return std::nearbyint(value) + 0.0;
}

double RoundTo(double value, int decimals) {
  if (decimals < 0 || decimals >= static_cast<int>(kPowersOfTen.size())) {
    throw ValueFailure(kInvalidArgument, std::to_string(decimals));
  }
  const double power = kPowersOfTen[static_cast<std::size_t>(decimals)];
  const double scaled = value * power;
  if (!std::isfinite(scaled)) return value;
  return std::nearbyint(scaled) / power + 0.0;  // + 0.0 turns -0 into 0
}

bool IsNumeric(std::string_view text) {
  const auto number = Rewritten(text);
  if (!number) return false;
  try {
    Parsed(*number, text);
    return true;
  } catch (const Failure&) {
    return false;
  }
}

double CDbl(std::string_view text) {
  const auto number = Rewritten(text);
  if (!number) throw ValueFailure(kTypeMismatch, text);
  return Parsed(*number, text);
}

std::int32_t CLng(double value) {
  return ToWhole<std::int32_t>(value);
}
std::int16_t CInt(double value) {
  return ToWhole<std::int16_t>(value);
}
std::uint8_t CByte(double value) {
  return ToWhole<std::uint8_t>(value);
}

std::string CStr(double value) {
  std::string text = PointText(value);
  if (const auto point = text.find('.'); point != std::string::npos) text[point] = ',';
  return text;
}

std::string CStr(std::int64_t value) {
  return std::to_string(value);
}

std::string Str(double value) {
  const std::string text = PointText(value);
  return text.front() == '-' ? text : " " + text;
}

double Val(std::string_view text) {
  std::size_t at = text.find_first_not_of(' ');
  if (at == std::string_view::npos) return 0;
  std::string number;
  if (text[at] == '-' || text[at] == '+') {
    if (text[at] == '-') number += '-';
    ++at;
  }
  const std::string_view whole = Digits(text, at);
  at += whole.size();
  std::string_view decimals;
  if (at < text.size() && text[at] == '.') {
    decimals = Digits(text, at + 1);
    at += 1 + decimals.size();
  }
  if (whole.empty() && decimals.empty()) return 0;
  number.append(whole.empty() ? "0" : whole);
  if (!decimals.empty()) number.append(".").append(decimals);
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    const bool isSigned = at + 1 < text.size() && (text[at + 1] == '-' || text[at + 1] == '+');
    const std::string_view exponent = Digits(text, at + (isSigned ? 2 : 1));
    if (!exponent.empty()) {
      number.append("e").append(isSigned && text[at + 1] == '-' ? "-" : "").append(exponent);
    }
  }
  return Parsed(number, text) + 0.0;
}

}  // namespace tevra
