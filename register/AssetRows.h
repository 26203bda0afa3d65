// The assets row by row with the sums of their values, for lists as long as the register.
#pragma once

#include <array>
#include <functional>

#include "platform/data/Connection.h"

namespace tevra {

struct AssetField {
  enum class Kind { kNumber, kText, kDate, kMoney };
  const char* name;
  Kind kind;
};

/// The fields of such a list, in their order.
inline constexpr std::array<AssetField, 14> kAssetRowFields{{
    {"NRCRT", AssetField::Kind::kNumber},
    {"COD", AssetField::Kind::kText},
    {"DENUMIRE", AssetField::Kind::kText},
    {"TIP_AM", AssetField::Kind::kText},
    {"CONT", AssetField::Kind::kText},
    {"DATA_IN_AM", AssetField::Kind::kDate},
    {"DATA_SF", AssetField::Kind::kDate},
    {"DATA_CALCUL", AssetField::Kind::kDate},
    {"VAL_CUMP", AssetField::Kind::kMoney},
    {"VAL_CUMP_VAL", AssetField::Kind::kMoney},
    {"VAL_AMOR_CUMULATA", AssetField::Kind::kMoney},
    {"VAL_AMOR_CUMULATA_VAL", AssetField::Kind::kMoney},
    {"VAL_RAMASA", AssetField::Kind::kMoney},
    {"VAL_RAMASA_VAL", AssetField::Kind::kMoney},
}};

struct AssetRowTotals {
  int assets = 0;
  Values sums;  ///< a value a field: the exact sum of a money field, Null counting as 0, else Null
};

/// Calls `use` with the fields of each asset by number. One row is in memory at a time. Throws
/// Failure, and what `use` throws.
AssetRowTotals ForEachAsset(Connection& connection, const std::function<void(const Values&)>& use);

}  // namespace tevra
