// The exchange between branch and centre.
#include <CLI/CLI.hpp>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

void AddExchangeCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  commands
      .Add({"export",
            "Scrie datele unei perioade pentru centru, ca fisier XML",
            {{"DELA", &line.from, "Prima zi a inregistrarilor: ZZ.LL.AAAA"},
             {"LA", &line.to, "Ultima zi: ZZ.LL.AAAA"}},
            Needs::kOpenCompany,
            [](const Job& job) {
              ExportPeriod(*job.company, ParseDate(job.line.from), ParseDate(job.line.to),
                           job.line.again, job.out);
            }})
      .add_flag("--again", line.again, "Exporta si o perioada care a mai fost exportata");
  AddDryRunFlag(commands.Add({"import",
                              "Preia datele unei sucursale dintr-un fisier XML",
                              {{"FISIER", &line.file, "Fisierul scris de export"}},
                              Needs::kOpenCompany,
                              [](const Job& job) {
                                ImportBranch(*job.company, job.line.file, job.line.dryRun, job.out);
                              }}),
                line, "Arata ce s-ar schimba, fara sa scrie nimic");
}

}  // namespace tevra::batch
