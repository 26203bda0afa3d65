// The grouped commands of the reports.
#pragma once

#include <string>
#include <vector>

namespace tevra {

struct GroupedCommand {
  std::string name;
  std::string text;  ///< see ReadShape; a "?" is a date, the first and the last day of a period
};

const std::vector<GroupedCommand>& GroupedCommands();

}  // namespace tevra
