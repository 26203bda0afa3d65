// The care of a company's file.
#include <CLI/CLI.hpp>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

void AddCareCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  CLI::App& backup = commands.Add(
      {"backup", "Salveaza baza de date", {}, Needs::kClosedCompany, [](const Job& job) {
         BackUpCompany(job.line.backup, job.out);
       }});
  AddBackupOptions(backup, line.backup);
  commands.Check(backup, [&line] { CheckBackupOptions(line.backup); });
  const CLI::App& restore =
      commands.Add({"restore",
                    "Restaureaza baza de date dintr-o salvare",
                    {{"FISIER", &line.file, "Salvarea"}},
                    Needs::kClosedCompany,
                    [](const Job& job) { RestoreCompany(job.line.file, job.out); }});
  commands.Check(restore, [&line] { line.usersFile = line.file; });
  commands.Add(
      {"compact", "Compacteaza baza de date", {}, Needs::kClosedCompany, [](const Job& job) {
         CompactCompany(job.out);
       }});
  commands
      .Add({"check",
            "Verifica daca baza de date este deteriorata",
            {},
            Needs::kClosedCompany,
            [](const Job& job) { CheckCompany(job.line.full, job.out); }})
      .add_flag("--full", line.full, "Verifica si indecsii; dureaza de cateva ori mai mult");
  AddDryRunFlag(commands.Add({"upgrade",
                              "Actualizeaza structura bazei de date",
                              {},
                              Needs::kClosedCompany,
                              [](const Job& job) { UpgradeCompany(job.line.dryRun, job.out); }}),
                line, "Arata ce s-ar schimba, fara sa scrie nimic");
}

}  // namespace tevra::batch
