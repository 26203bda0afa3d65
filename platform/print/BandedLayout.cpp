#include "platform/print/BandedLayout.h"

#include <algorithm>

#include "platform/text/Failure.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

template <class Item>
Item& ByName(std::vector<Item>& items, const std::string& name) {
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&](const Item& item) { return EqualNoCase(item.name, name); });
  if (found == items.end()) throw Failure(kItemNotFound, "Item not found: " + name);
  return *found;
}

}  // namespace

ReportSection& ReportLayout::Section(const std::string& section) {
  return ByName(sections, section);
}

ReportControl& ReportLayout::Control(const std::string& section, const std::string& control) {
  return ByName(Section(section).controls, control);
}

const ReportSection* ReportLayout::Shown(BandRole role) const {
  const auto found = std::find_if(sections.begin(), sections.end(), [&](const ReportSection& each) {
    return each.role == role && each.visible;
  });
  return found == sections.end() ? nullptr : &*found;
}

}  // namespace tevra
