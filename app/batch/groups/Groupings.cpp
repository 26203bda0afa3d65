#include "app/batch/groups/Groupings.h"

#include <map>

namespace tevra::batch {

namespace {

const std::map<std::string, Grouping> kGroupings{{"account", Grouping::Account},
                                                 {"class", Grouping::Class},
                                                 {"location", Grouping::Location},
                                                 {"centre", Grouping::Centre}};

}  // namespace

Grouping GroupingNamed(const std::string& written, bool inventory) {
  const auto grouping = kGroupings.find(written == "person" && inventory ? "class" : written);
  if (grouping == kGroupings.end() || (inventory && written == "class")) {
    throw UsageError("Grupare necunoscuta: " + written + " (account, " +
                     (inventory ? "person" : "class") + ", location, centre) !");
  }
  return grouping->second;
}

}  // namespace tevra::batch
