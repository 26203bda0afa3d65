// What the reports of a family differ in: their names, their fields and their words, which are as
// uneven as users know them.
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
  const char* product;  ///< at the foot of the page
  const char* page;
  bool named;    ///< has a column with the assets' names
  bool english;  ///< title and column titles; the other words are its own
};
std::vector<ChargesWords> ChargesFamily();
ReportLayout ChargesLayout(const ChargesWords& words);

/// What was bought in a period by one of four fields: assets in lei or in currency, inventory
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
  bool english;  ///< the other column titles
};
std::vector<ListWords> PurchasesFamily();
std::vector<ListWords> InventoryFamily();
ReportLayout ListLayout(const ListWords& words);

}  // namespace tevra
