// The work of a month.
#include <CLI/CLI.hpp>
#include <memory>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groupings.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

namespace {

void AddCharges(CommandSet& commands) {
  CommandLine& line = commands.Line();
  CLI::App& charges =
      commands.Add({"charges",
                    "Afiseaza cheltuielile lunii dupa ultimul calcul, pe grupe",
                    {},
                    Needs::kOpenCompany,
                    [](const Job& job) { ListCharges(job.line.grouping, job.line.csv, job.out); }});
  const auto by = std::make_shared<std::string>("account");
  charges
      .add_option("--by", *by,
                  "Gruparea: account (cont, implicit), class (cod de clasificare), location "
                  "(localizare), centre (centru de cost)")
      ->type_name("GRUPARE");
  AddCsvFlag(charges, line);
  commands.Check(charges, [by, &line] { line.grouping = GroupingNamed(*by, false); });
}

}  // namespace

void AddMonthCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  commands
      .Add({"calculate",
            "Calculeaza amortizarea tuturor imobilizarilor la o data",
            {{"DATA", &line.date, "Data calculului: ZZ.LL.AAAA"}},
            Needs::kOpenCompany,
            [](const Job& job) { Calculate(ParseDate(job.line.date), job.line.post, job.out); }})
      .add_flag("--post", line.post, "Scrie si notele contabile ale lunii");
  AddDryRunFlag(commands.Add({"transfer",
                              "Trece imobilizarile mici in obiecte de inventar, la sfarsitul unei "
                              "luni",
                              {{"LUNA", &line.month, "Luna ultimului calcul: LL.AAAA"}},
                              Needs::kOpenCompany,
                              [](const Job& job) {
                                Transfer(*job.company, ParseMonth(job.line.month), job.line.dryRun,
                                         job.out);
                              }}),
                line, "Arata ce ar trece, fara sa scrie nimic");
  CLI::App& monthEnd = commands.Add({"month-end",
                                     "Sfarsitul de luna al mai multor societati: salvare, calcul, "
                                     "note contabile, rapoarte",
                                     {},
                                     Needs::kNothing,
                                     EndMonths});
  AddMonthEndOptions(monthEnd, line);
  commands.Check(monthEnd, [&monthEnd, &line] { CheckMonthEndOptions(monthEnd, line); });
  AddCharges(commands);
}

}  // namespace tevra::batch
