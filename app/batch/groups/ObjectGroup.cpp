// Inventory objects.
#include <CLI/CLI.hpp>
#include <memory>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

void AddObjectCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  AddCsvFlag(commands.Add({"objects",
                           "Afiseaza obiectele de inventar si totalurile lor",
                           {},
                           Needs::kOpenCompany,
                           [](const Job& job) { ListObjects(job.line.csv, job.out); }}),
             line);
  const auto action = std::make_shared<std::string>();
  CLI::App& object =
      commands.Add({"object",
                    "Adauga un obiect de inventar si nota lui de cumparare",
                    {{"ACTIUNE", action.get(), "add"}},
                    Needs::kOpenCompany,
                    [](const Job& job) { AddObject(*job.company, job.line.object, job.out); }});
  AddObjectOptions(object, line.object);
  commands.Check(object, [action] {
    if (*action != "add") throw UsageError("Actiune necunoscuta: " + *action + " (add) !");
  });
  commands.Add({"write-off",
                "Descarca un obiect de inventar: il trece pe cheltuieli",
                {{"NRCRT", &line.nrcrt, "Numarul curent al obiectului"}},
                Needs::kOpenCompany,
                [](const Job& job) { WriteOffObject(*job.company, job.line.nrcrt, job.out); }});
}

}  // namespace tevra::batch
