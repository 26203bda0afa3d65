// Formats a number by a mask in two parts: its decimal digits, rounded as on paper, and the parsed
// mask.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tevra {

/// A finite number as decimal digits: the fewest that read back as the same number.
class DecimalDigits {
 public:
  explicit DecimalDigits(double value);

  bool IsNegative() const { return negative_; }
  bool IsZero() const { return digits_.empty(); }

  /// Moves the decimal sign `places` to the right: 2 makes a fraction a percentage.
  void Shift(int places) { point_ += IsZero() ? 0 : places; }

  /// Rounds to `decimals` decimals, a half away from zero.
  void Round(int decimals);

  /// The digits before the decimal sign, none when they are 0.
  std::string Whole() const;

  /// The first `count` digits after the decimal sign, filled up with 0.
  std::string Decimals(int count) const;

 private:
  void DropZeros();

  bool negative_ = false;
  std::string digits_;  // neither first nor last is 0
  int point_ = 0;       // the number of digits before the decimal sign; may be negative
};

/// A parsed mask. "#,##0.00" has the decimal sign "." and the separator ","; a mask that begins
/// with the number "#.##0" is in Romanian form and has them exchanged.
class NumberMask {
 public:
  explicit NumberMask(std::string_view mask);

  std::string Apply(double value) const;

 private:
  enum class Kind { kAlways, kIfThere, kDecimalSign, kText };
  struct Piece {
    Kind kind;
    char text;
  };

  void Read(std::string_view mask, char decimalSign, char separator);
  void AddText(char c);
  void AddPlace(Kind kind, bool behindSign);
  std::string WholePlace(const std::string& whole, std::size_t place, bool always) const;

  std::vector<Piece> pieces_;
  std::size_t wholePlaces_ = 0;
  int decimalPlaces_ = 0;
  int decimalsAlways_ = 0;  // decimals up to the last "0"
  int hundredfold_ = 0;     // the number of "%"
  bool grouped_ = false;
};

}  // namespace tevra
