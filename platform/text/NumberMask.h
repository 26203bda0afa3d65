// The two halves of showing a number by a mask: its decimal digits, rounded as on paper, and the
// mask.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tevra {

/// A finite number as decimal digits: the shortest ones that read back as the same number.
class DecimalDigits {
 public:
  explicit DecimalDigits(double value);

  bool IsNegative() const { return negative_; }
  bool IsZero() const { return digits_.empty(); }

  /// Moves the decimal sign `places` to the right: 2 makes a fraction a percentage.
  void Shift(int places) { point_ += IsZero() ? 0 : places; }

  /// Keeps `decimals` decimals; half a unit of the last goes away from zero.
  void Round(int decimals);

  /// The digits before the decimal sign, none when they are 0.
  std::string Whole() const;

  /// The first `count` digits behind the decimal sign, filled up with 0.
  std::string Decimals(int count) const;

 private:
  void DropZeros();

  bool negative_ = false;
  std::string digits_;  // neither first nor last is 0
  int point_ = 0;       // how many of the digits stand before the decimal sign; may be negative
};

/// A mask taken apart. "#,##0.00" has the decimal sign "." and the separator ","; a mask that
/// begins with the number "#.##0" is written the Romanian way and has them the other way round.
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
  int hundredfold_ = 0;     // how many "%"
  bool grouped_ = false;
};

}  // namespace tevra
