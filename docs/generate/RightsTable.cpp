#include "docs/generate/RightsTable.h"

#include <algorithm>
#include <array>

#include "platform/text/Strings.h"

namespace tevra {

namespace {

using Rights = std::array<bool, 3>;  // of the types 0, 1 and 2

bool Names(const std::vector<std::string>& names, const char* name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

Rights RightsOf(const MenuTop& menu, const MenuItem& item) {
  Rights rights{};
  for (int type = 0; type < 3; ++type) {
    const std::vector<std::string> forbidden = ForbiddenItems(type);
    rights[type] = !Names(forbidden, menu.name) && !Names(forbidden, item.name);
  }
  return rights;
}

std::string Shown(std::string caption) {
  std::erase(caption, '&');
  return Trim(caption);
}

std::string Row(const std::string& caption, const Rights& rights) {
  std::string row = "<tr><td>" + caption + "</td>";
  for (const bool allowed : rights) row += allowed ? "<td>da</td>" : "<td>-</td>";
  return row + "</tr>\n";
}

std::string Rows(const MenuTop& menu) {
  std::string rows;
  std::vector<Rights> all;
  for (const MenuItem& item : menu.items) {
    if (item.action == MenuAction::kSeparator || item.action == MenuAction::kNone) continue;
    all.push_back(RightsOf(menu, item));
    rows += Row(Shown(menu.caption) + " - " + Shown(item.caption), all.back());
  }
  const bool same = std::all_of(all.begin(), all.end(),
                                [&](const Rights& rights) { return rights == all.front(); });
  return same && !all.empty() ? Row(Shown(menu.caption) + ": tot meniul", all.front()) : rows;
}

}  // namespace

std::string RightsTable(const std::vector<MenuTop>& menu) {
  std::string table =
      "<table>\n<tr><th>Meniu</th><th>Tip 0</th><th>Tip 1</th><th>Tip 2</th></tr>\n";
  for (const MenuTop& top : menu) table += Rows(top);
  return table + "</table>\n";
}

}  // namespace tevra
