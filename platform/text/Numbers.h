// Numbers as Romanian users write and read them (1.234,56), their conversions and roundings.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tevra {

/// Rounds to a whole number, ties to the even one: 2.5 gives 2, 3.5 gives 4.
double Round0(double value);

/// Rounds to `decimals` decimals (0 to 15), ties to even: scaled by a power of ten in double
/// precision, rounded, scaled back. The one rounding of the whole program. Throws Failure 5 for
/// another number of decimals.
double RoundTo(double value, int decimals);

/// True for a number in Romanian form: an optional sign, digits, "." only between groups of three
/// digits, "," before the decimals, an optional exponent ("1e3", "1,5E-2"), blanks around it. So
/// "1.234,56" is numeric, "0.5" and "1.23" are not; nor is "0.125", which was meant as 0,125: no
/// grouped number begins with a zero.
bool IsNumeric(std::string_view text);

/// The number that a text in Romanian form holds. Throws Failure 13 when it is not numeric, Failure
/// 6 when it is too large for a double.
double CDbl(std::string_view text);

/// To a 32-bit, 16-bit or 8-bit whole number, ties to even. Throws Failure 6 outside the range.
std::int32_t CLng(double value);
std::int16_t CInt(double value);
std::uint8_t CByte(double value);

/// The shortest text of a number with at most 15 significant digits: decimal comma, no thousands
/// separators, "1E+20" form for very large and very small ones.
std::string CStr(double value);
std::string CStr(std::int64_t value);

/// As CStr but with a decimal point and a blank in the place of the sign of a number that is not
/// negative: " 120".
std::string Str(double value);

/// The number at the start of a text, read with a decimal point; 0 when there is none. Throws
/// Failure 6 when it is too large for a double.
double Val(std::string_view text);

/// A number in a named format or by a mask.
///
/// Named: "General Number", "Standard" (1.234,50), "Fixed" (1234,50), "Percent" (12,50%).
/// Masks: "0" shows a digit always, "#" only where there is one, "." the decimals, "," between
/// digits the thousands, "%" a hundredfold; "###,###" and "#.##0" are both whole numbers with
/// thousands separators, and under "###,###" a zero is blank. A mask may go on behind "#.##0" with
/// "," and the decimals, as in "#.##0,00". A text in double quotes, or a character behind a "\",
/// stands as it is. Ties go away from zero, as on paper, on the decimals that the number shows when
/// written in full: 1.005 with two decimals is 1,01. What rounds to zero has no sign.
std::string Format(double value, std::string_view format);

}  // namespace tevra
