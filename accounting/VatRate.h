// A VAT rate as the screens' lists show it.
#pragma once

#include <cstdint>
#include <string>

namespace tevra {

/// "4426.19-19": account and percentage.
struct VatRate {
  std::string account;
  std::int16_t percent = 0;  ///< a half is rounded to the even number
};

/// Reads the text of a rate up to its first "-" and behind it; without "-" the whole text is both.
/// The empty text gives no account and 0. Throws Failure 13 for a percentage that is no number, 6
/// for one outside 16 bits.
VatRate ReadVatRate(const std::string& text);

/// The percentage of such a text with its decimals; 0 for the empty text. Throws Failure 13.
double VatPercent(const std::string& text);

}  // namespace tevra
