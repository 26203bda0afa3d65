// The monthly charges as a list: the assets in groups with their sums.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/shape/ShapedRecordset.h"
#include "reports/CalculatedMonth.h"

namespace tevra {

enum class ChargesBy { Account, Class, Location, Centre };

/// Name and caption of the column of I_IMO by which the assets are grouped.
struct ChargesKey {
  const char* field;
  const char* caption;
};
ChargesKey KeyOf(ChargesBy by);

/// The charges by the rates of the last run, each rounded as it is posted, so that the sums are
/// those of the postings. A snapshot: rows and groups lie on disk, and the company is free. Groups
/// come by key without case, first that of the assets without one; assets come by their number.
class ChargesList {
 public:
  /// Throws Failure.
  ChargesList(Connection& connection, ChargesBy by);

  struct Sums {
    double charge = 0;
    double cumulated = 0;
    double remaining = 0;
  };
  struct Asset {
    Value number;
    Value code;
    Value name;
    Value charge;
    Value cumulated;
    Value remaining;
  };
  struct Group {
    std::string key;  ///< empty for the assets without one
    Sums sums;
    std::size_t first = 0;  ///< its first asset
    std::size_t assets = 0;
  };

  std::size_t GroupCount() const { return rows_.GroupCount(); }
  Group GroupAt(std::size_t group) const;
  Asset AssetAt(std::size_t row) const;
  Sums Totals() const;

  /// The month for which most of the assets were calculated; nothing before the first calculation.
  const std::optional<CalculatedMonth>& Month() const { return month_; }

 private:
  ShapedRecordset rows_;
  std::optional<CalculatedMonth> month_;
};

}  // namespace tevra
