// The commands by groups. A new command is described in the file of its group; a new group is added
// to the list in CommandLine.cpp.
#pragma once

#include "app/batch/groups/CommandSet.h"

namespace tevra::batch {

void AddCompanyCommands(CommandSet& commands);
void AddMonthCommands(CommandSet& commands);
void AddAssetCommands(CommandSet& commands);
void AddObjectCommands(CommandSet& commands);
void AddRatesCommands(CommandSet& commands);
void AddExchangeCommands(CommandSet& commands);
void AddCareCommands(CommandSet& commands);
void AddConversionCommands(CommandSet& commands);
void AddReportCommands(CommandSet& commands);

}  // namespace tevra::batch
