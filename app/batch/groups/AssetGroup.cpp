// The assets one by one.
#include <CLI/CLI.hpp>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

void AddAssetCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  AddCsvFlag(commands.Add({"asset",
                           "Aduce o imobilizare la o data, ca pentru iesire, si o afiseaza",
                           {{"COD", &line.code, "Numarul de inventar"},
                            {"DATA", &line.date, "Data calculului: ZZ.LL.AAAA"}},
                           Needs::kOpenCompany,
                           [](const Job& job) {
                             CalculateOneAsset(*job.company, job.line.code,
                                               ParseDate(job.line.date), job.line.csv, job.out);
                           }}),
             line);
  AddCsvFlag(
      commands.Add({"plan",
                    "Face si afiseaza planul de amortizare pe ani",
                    {{"NRCRT", &line.nrcrt, "Numarul curent al imobilizarii"}},
                    Needs::kOpenCompany,
                    [](const Job& job) { WritePlan(job.line.nrcrt, job.line.csv, job.out); }}),
      line);
  AddCsvFlag(commands.Add({"assets",
                           "Afiseaza imobilizarile si totalurile lor",
                           {},
                           Needs::kOpenCompany,
                           [](const Job& job) { ListAssets(job.line.csv, job.out); }}),
             line);
  CLI::App& dispose = commands.Add(
      {"dispose", "Scoate o imobilizare din gestiune", {}, Needs::kOpenCompany, [](const Job& job) {
         DisposeOfAsset(*job.company, job.line, ParseDate(job.line.date), job.out);
       }});
  AddDisposalOptions(dispose, line);
  commands.Check(dispose, [&dispose, &line] { CheckDisposalOptions(dispose, line); });
}

}  // namespace tevra::batch
