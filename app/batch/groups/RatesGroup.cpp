// Exchange rates.
#include <CLI/CLI.hpp>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

void AddRatesCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  CLI::App& rates =
      commands.Add({"rates",
                    "Preia cursurile valutare dintr-un fisier XML al Bancii Nationale",
                    {{"FISIER", &line.file, "Fisierul XML; cu --at, codul valutei"}},
                    Needs::kOpenCompany,
                    [](const Job& job) {
                      if (!job.line.file.empty())
                        return TakeRates(*job.company, job.line.file, job.out);
                      PrintRate(*job.company, job.line.code, ParseDate(job.line.rateDay), job.out);
                    }});
  rates
      .add_option("--at", line.rateDay,
                  "Afiseaza in loc cursul unei valute intr-o zi (sau dinainte): ZZ.LL.AAAA")
      ->type_name("DATA");
  commands.Check(rates, [&rates, &line] {
    if (rates.count("--at") > 0) line.code = std::exchange(line.file, {});
  });
}

}  // namespace tevra::batch
