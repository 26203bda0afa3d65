// The statements and totals of the list of assets.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace tevra {

/// All assets with the names of their location, supplier and cost centre, also when those do not
/// exist; without an order.
std::string AssetListStatement();

/// The order at opening: the newest asset first.
inline constexpr const char* kNewestFirst = "order by A.nrcrt desc ";

/// The assets whose name begins with the parameter, newest first.
std::string AssetSearchStatement();

/// The list for an empty search: only the assets' own fields, by number.
inline constexpr const char* kAssetsByNumber = "select * from I_imo ORDER BY nrcrt";

/// The columns with totals, alternately in lei and in currency.
inline constexpr std::array<const char*, 6> kTotalledFields{
    "VAL_CUMP",   "VAL_CUMP_VAL",  "VAL_AMOR_CUMULATA", "VAL_AMOR_CUMULATA_VAL",
    "VAL_RAMASA", "VAL_RAMASA_VAL"};

/// Adds the totalled fields of one asset as a listing does: each total is rounded to whole lei
/// after each asset, but for the purchase value in currency.
void AddListedAsset(std::vector<double>& totals, const Values& values);

}  // namespace tevra
