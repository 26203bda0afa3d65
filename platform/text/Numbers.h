// Numbers in Romanian form (1.234,56), their conversions and rounding.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tevra {

/// Rounds to a whole number, ties to the even one: 2.5 gives 2, 3.5 gives 4.
double Round0(double value);

/// Rounds to `decimals` decimals (0 to 15), ties to even: scaled by a power of ten in double
/// precision, rounded, scaled back. All rounding of the program uses this routine. Throws Failure 5
/// for another number of decimals.
double RoundTo(double value, int decimals);

/// True for a number in Romanian form: an optional sign, digits, "." only between groups of three
/// digits, "," before the decimals, an optional exponent ("1e3", "1,5E-2"), blanks around it. So
/// "1.234,56" is numeric; "0.5" and "1.23" are not, and neither is "0.125", because a number with
/// groups cannot begin with a zero.
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

/// Like CStr but with a decimal point, and with a blank instead of the sign when the number is not
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
/// thousands separators, and under "###,###" a zero is blank. After "#.##0" a mask may have
/// "," and the decimals, as in "#.##0,00". A text in double quotes and a character after a "\" are
/// copied. A half is rounded away from zero, as on paper, based on the number's shortest decimal
/// form: 1.005 with two decimals is 1,01. A result of zero has no sign.
std::string Format(double value, std::string_view format);

}  // namespace tevra
