// The boxes of the asset card by what they hold: the places in its three arrays of boxes. Files
// that name many of them import the names with "using enum".
#pragma once

#include <cstddef>

namespace tevra {

/// Places in txtText and in AssetCard::text. Where a combo or an option gives the value, the box
/// is hidden and holds the code.
namespace text {
enum Place : std::size_t {
  kCode,
  kGroup,
  kName,
  kCostCentre,
  kLocation,
  kDocument,
  kSupplier,
  kVat,
  kAccount,
  kMethod,
  kRemarks
};
inline constexpr std::size_t kCount = kRemarks + 1;
}  // namespace text

/// Places in txtNumar and in AssetCard::number.
namespace number {
enum Place : std::size_t {
  kValue,
  kExchangeRate,
  kForeignValue,
  kNormalYears,
  kRealYears,
  kRate,  ///< of the linear phase, a fraction of 1 a year
  kUse,   ///< hidden: the degree of use, picked in a combo
  kBlockedValue,
  kBlockedForeignValue,
  kNrCrt,  ///< hidden
  kCoef,   ///< share of the first phase
  kYearsLeft,
  kMonthsLeft,
  kExpensed,
  kExpensedForeign
};
inline constexpr std::size_t kCount = kExpensedForeign + 1;
}  // namespace number

/// Places in DTPicker1 and in AssetCard::date.
namespace date {
enum Place : std::size_t { kBought, kInService, kStart, kEnd, kBlockedFrom };
inline constexpr std::size_t kCount = kBlockedFrom + 1;
}  // namespace date

}  // namespace tevra
