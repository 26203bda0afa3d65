// The differences between the reports of a family: names, fields and texts. The texts are
// irregular; users know them so.
#pragma once

#include <vector>

#include "platform/print/BandedLayout.h"

namespace tevra {

/// The monthly charges by one of four fields, in lei or in currency.
struct ChargesWords {
  const char* name;
  const char* command;
  const char* group;       ///< the field of the groups
  const char* groupLabel;  ///< before the group's key
  const char* value;       ///< the field of the value to depreciate
  const char* total;       ///< before the key under a group
  const char* grandTotal;
  const char* product;  ///< in the page footer
  const char* page;
  bool named;    ///< has a column with the assets' names
  bool english;  ///< title and column titles; the other texts are given above
};
std::vector<ChargesWords> ChargesFamily();
ReportLayout ChargesLayout(const ChargesWords& words);

/// The purchases of a period by one of four fields: assets in lei or in currency, inventory
/// objects.
struct ListWords {
  const char* name;
  const char* command;
  const char* group;
  const char* groupLabel;  ///< empty for none
  const char* title;
  const char* from;   ///< before the first date
  const char* to;     ///< before the last one
  const char* value;  ///< the title of the value's column
  const char* total;  ///< the field of the groups' totals
  const char* grandTotal;
  bool english;  ///< English column titles
};
std::vector<ListWords> PurchasesFamily();
std::vector<ListWords> InventoryFamily();
ReportLayout ListLayout(const ListWords& words);

}  // namespace tevra
