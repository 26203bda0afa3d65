// The conversions that a company went through in 2005.
#include <CLI/CLI.hpp>
#include <map>
#include <memory>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

namespace {

const std::map<std::string, Reclassification>& Works() {
  static const std::map<std::string, Reclassification> kWorks{
      {"codes", Reclassification::kCodes},
      {"durations", Reclassification::kDurations},
      {"restart", Reclassification::kRestart}};
  return kWorks;
}

}  // namespace

void AddConversionCommands(CommandSet& commands) {
  commands.Add({"redenominate",
                "Imparte la 10.000 valorile cumparate inainte de 01.07.2005, dupa o salvare",
                {},
                Needs::kOpenCompany,
                [](const Job& job) { RedenominateCompany(*job.company, job.out); }});
  const auto work = std::make_shared<std::string>();
  const CLI::App& reclassify = commands.Add(
      {"reclassify",
       "Trece imobilizarile la clasificarea din 2005 (HG 2139/2004), dupa o salvare",
       {{"LUCRARE", work.get(),
         "codes (codurile noi), durations (limita inferioara devine durata noua) sau "
         "restart (durata ramasa de la 01.01.2005)"}},
       Needs::kOpenCompany,
       [work](const Job& job) { ReclassifyCompany(*job.company, Works().at(*work), job.out); }});
  commands.Check(reclassify, [work] {
    if (Works().contains(*work)) return;
    throw UsageError("Lucrare necunoscuta: " + *work + " (codes, durations, restart) !");
  });
}

}  // namespace tevra::batch
