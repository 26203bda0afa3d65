#include "reports/Layouts.h"

#include <algorithm>

#include "platform/text/Failure.h"
#include "platform/text/Strings.h"
#include "reports/LayoutFamilies.h"

namespace tevra {

std::vector<std::string> LayoutNames() {
  std::vector<std::string> names;
  for (const ChargesWords& words : ChargesFamily()) names.emplace_back(words.name);
  for (const ListWords& words : PurchasesFamily()) names.emplace_back(words.name);
  for (const ListWords& words : InventoryFamily()) names.emplace_back(words.name);
  return names;
}

ReportLayout LayoutNamed(const std::string& name) {
  for (const ChargesWords& words : ChargesFamily()) {
    if (EqualNoCase(words.name, name)) return ChargesLayout(words);
  }
  for (const auto& family : {PurchasesFamily(), InventoryFamily()}) {
    for (const ListWords& words : family) {
      if (EqualNoCase(words.name, name)) return ListLayout(words);
    }
  }
  throw Failure(kItemNotFound, "Item not found: " + name);
}

}  // namespace tevra
