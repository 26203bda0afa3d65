#include "platform/text/NumberMask.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {
namespace {

constexpr char kShownDecimalSign = ',';
constexpr char kShownSeparator = '.';

bool IsPlace(char c) {
  return c == '0' || c == '#';
}

/// Whether the mask's number is "#.##0", alone or with decimals after a ",".
bool IsRomanian(std::string_view mask) {
  constexpr std::string_view kNumber = "#.##0";
  const std::size_t at = mask.find_first_of("0#.,");
  if (at == std::string_view::npos || mask.substr(at, kNumber.size()) != kNumber) return false;
  const std::string_view behind = mask.substr(at + kNumber.size());
  return behind.empty() || !IsPlace(behind.front());
}

}  // namespace

DecimalDigits::DecimalDigits(double value) : negative_(std::signbit(value)) {
  char buffer[32];
  const char* end =
      std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific)
          .ptr;
  const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
  const std::size_t exponent = text.find('e');
  for (const char c : text.substr(0, exponent)) {
    if (c != '.') digits_ += c;
  }
  const std::size_t number = exponent + (text[exponent + 1] == '+' ? 2 : 1);
  std::from_chars(buffer + number, end, point_);
  ++point_;
  DropZeros();
}

void DecimalDigits::DropZeros() {
  digits_.erase(digits_.find_last_not_of('0') + 1);
  const std::size_t leading = std::min(digits_.find_first_not_of('0'), digits_.size());
  digits_.erase(0, leading);
  point_ = digits_.empty() ? 0 : point_ - static_cast<int>(leading);
}

void DecimalDigits::Round(int decimals) {
  const int kept = point_ + decimals;
  if (kept >= static_cast<int>(digits_.size())) return;
  if (kept < 0) {
    digits_.clear();
    point_ = 0;
    return;
  }
  const auto cut = static_cast<std::size_t>(kept);
  const bool up = digits_[cut] >= '5';
  digits_.erase(cut);
  if (up) {
    const std::size_t raised = digits_.find_last_not_of('9');
    if (raised == std::string::npos) {
      digits_ = "1";
      ++point_;
    } else {
      ++digits_[raised];
      digits_.erase(raised + 1);
    }
  }
  DropZeros();
}

std::string DecimalDigits::Whole() const {
  if (point_ <= 0) return {};
  std::string whole = digits_.substr(0, static_cast<std::size_t>(point_));
  whole.resize(static_cast<std::size_t>(point_), '0');
  return whole;
}

std::string DecimalDigits::Decimals(int count) const {
  std::string decimals;
  for (int i = 0; i < count; ++i) {
    const int at = point_ + i;
    const bool there = at >= 0 && at < static_cast<int>(digits_.size());
    decimals += there ? digits_[static_cast<std::size_t>(at)] : '0';
  }
  return decimals;
}

NumberMask::NumberMask(std::string_view mask) {
  if (IsRomanian(mask)) {
    Read(mask, ',', '.');
  } else {
    Read(mask, '.', ',');
  }
}

void NumberMask::AddText(char c) {
  pieces_.push_back({Kind::kText, c});
}

void NumberMask::AddPlace(Kind kind, bool behindSign) {
  pieces_.push_back({kind, '\0'});
  if (!behindSign) {
    ++wholePlaces_;
    return;
  }
  ++decimalPlaces_;
  if (kind == Kind::kAlways) decimalsAlways_ = decimalPlaces_;
}

void NumberMask::Read(std::string_view mask, char decimalSign, char separator) {
  bool behindSign = false;
  for (std::size_t at = 0; at < mask.size(); ++at) {
    const char c = mask[at];
    if (IsPlace(c)) {
      AddPlace(c == '0' ? Kind::kAlways : Kind::kIfThere, behindSign);
    } else if (c == decimalSign && !behindSign) {
      behindSign = true;
      pieces_.push_back({Kind::kDecimalSign, '\0'});
    } else if (c == separator && !behindSign && wholePlaces_ > 0 && at + 1 < mask.size() &&
               IsPlace(mask[at + 1])) {
      grouped_ = true;
    } else if (c == '\\' && at + 1 < mask.size()) {
      AddText(mask[++at]);
    } else if (c == '"') {
      for (++at; at < mask.size() && mask[at] != '"'; ++at) AddText(mask[at]);
    } else {
      hundredfold_ += c == '%' ? 1 : 0;
      AddText(c);
    }
  }
}

/// The digits of the whole part shown at a place of the mask, counted from 0. The first place also
/// shows all digits that have no place of their own.
std::string NumberMask::WholePlace(const std::string& whole, std::size_t place, bool always) const {
  const std::size_t from = place == 0 ? std::max(whole.size(), wholePlaces_) : wholePlaces_ - place;
  const std::size_t to = wholePlaces_ - place - 1;
  std::string text;
  for (std::size_t right = from; right > to; --right) {  // `right` counts from the decimal sign
    if (right > whole.size() && !always) continue;
    text += right > whole.size() ? '0' : whole[whole.size() - right];
    if (grouped_ && right > 1 && right % 3 == 1) text += kShownSeparator;
  }
  return text;
}

std::string NumberMask::Apply(double value) const {
  if (!std::isfinite(value)) return CStr(value);
  DecimalDigits number(value);
  number.Shift(2 * hundredfold_);
  number.Round(decimalPlaces_);
  const std::string whole = number.Whole();
  std::string decimals = number.Decimals(decimalPlaces_);
  const std::size_t shown = decimals.find_last_not_of('0') + 1;
  decimals.resize(std::max(shown, static_cast<std::size_t>(decimalsAlways_)));

  std::string text;
  std::size_t wholePlace = 0, decimalPlace = 0;
  bool behindSign = false, always = false;
  for (const Piece& piece : pieces_) {
    if (piece.kind == Kind::kText) {
      text += piece.text;
    } else if (piece.kind == Kind::kDecimalSign) {
      if (wholePlaces_ == 0) text += whole;
      if (!decimals.empty()) text += kShownDecimalSign;
      behindSign = true;
    } else if (behindSign) {
      if (decimalPlace < decimals.size()) text += decimals[decimalPlace];
      ++decimalPlace;
    } else {
      always = always || piece.kind == Kind::kAlways;
      text += WholePlace(whole, wholePlace++, always);
    }
  }
  return number.IsNegative() && !number.IsZero() ? "-" + text : text;
}

std::string Format(double value, std::string_view format) {
  if (format.empty() || EqualNoCase(format, "General Number")) return CStr(value);
  static const NumberMask standard("#,##0.00"), fixed("0.00"), percent("0.00%");
  if (EqualNoCase(format, "Standard")) return standard.Apply(value);
  if (EqualNoCase(format, "Fixed")) return fixed.Apply(value);
  if (EqualNoCase(format, "Percent")) return percent.Apply(value);
  return NumberMask(format).Apply(value);
}

}  // namespace tevra
