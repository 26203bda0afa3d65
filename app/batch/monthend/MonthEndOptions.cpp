#include "app/batch/monthend/MonthEndOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <sstream>

#include "app/batch/CommandLine.h"
#include "app/batch/Refusal.h"
#include "engine/Module3.h"
#include "platform/system/Clock.h"
#include "platform/text/Dates.h"
#include "platform/text/Strings.h"

namespace tevra::batch {

namespace {

std::vector<std::string> CodesOf(const std::string& companies) {
  std::vector<std::string> codes;
  std::istringstream parts(companies + ",");
  for (std::string part; std::getline(parts, part, ',');) {
    const std::string code = Trim(part);
    const auto same = [&code](const std::string& other) { return EqualNoCase(other, code); };
    if (code.empty()) throw UsageError("Optiunea --companies cere coduri: 01,02 !");
    if (std::any_of(codes.begin(), codes.end(), same)) {
      throw UsageError("Optiunea --companies are de doua ori societatea " + code + " !");
    }
    codes.push_back(code);
  }
  return codes;
}

}  // namespace

void AddMonthEndOptions(CLI::App& command, CommandLine& line) {
  MonthEndOptions& options = line.monthEnd;
  const auto option = [&command](const char* name, std::string& value, const char* type,
                                 const char* description) {
    return command.add_option(name, value, description)->type_name(type);
  };
  option("DATA", options.date, "",
         "Data calculului: ZZ.LL.AAAA, sau LL.AAAA pentru ultima zi a lunii (implicit ultima zi a "
         "lunii trecute)");
  command.add_flag("--all", options.all, "Toate societatile din director");
  option("--companies", options.companies, "CODURI", "Numai aceste societati: 01,02");
  option("--credentials", options.credentials, "FISIER",
         "Fisier cu cate o linie COD;UTILIZATOR;PAROLA, pe care numai proprietarul il poate citi")
      ->required();
  command.add_flag("--post", line.post, "Scrie si notele contabile ale lunii");
  command.add_flag("--again", line.again, "Scrie din nou notele unei luni deja contate");
  option("--pdf", options.pdfFolder, "DIR",
         "Scrie aici rapoartele cheltuielilor, pe conturi, clasificari, localizari si centre");
  option("--backup", options.backupFolder, "DIR",
         "Directorul salvarilor, care exista (implicit Salv_Tevra din directorul societatilor)");
  command.add_flag("--dry-run", line.dryRun, "Arata ce ar face, fara sa scrie nimic");
  command.add_flag("--json", options.json, "Scrie rezultatul ca JSON");
}

void CheckMonthEndOptions(const CLI::App& command, CommandLine& line) {
  MonthEndOptions& options = line.monthEnd;
  const bool some = command.count("--companies") > 0;
  if (options.all && some) throw UsageError("Optiunea --companies exclude --all !");
  if (!options.all && !some) throw UsageError("Lipseste optiunea --all sau --companies !");
  if (line.again && !line.post) throw UsageError("Optiunea --again cere --post !");
  // The program's options for one company have no effect here.
  for (const char* name : {"--company", "--user", "--password-file"}) {
    if (command.get_parent()->count(name) == 0) continue;
    throw UsageError(std::string("Optiunea ") + name + " nu se potriveste cu month-end !");
  }
  if (some) options.codes = CodesOf(options.companies);
  line.writesReports = !options.pdfFolder.empty() && !line.dryRun;
}

DateTime MonthEndDay(const std::string& written) {
  const DateTime today = clock::Today();
  if (written.empty()) return MonthBegin(today).AddDays(-1);
  const std::optional<DateTime> month = WholeDate("01." + written);
  const std::optional<DateTime> day = month ? MonthEnd(*month) : WholeDate(written);
  if (!day || *day != day->Midnight() || (month && *month != month->Midnight())) {
    throw Refusal("Data \"" + written + "\" nu este corecta (ZZ.LL.AAAA sau LL.AAAA) !");
  }
  if (*day > MonthEnd(today)) {
    throw Refusal("Luna " + Format(*day, "mm.yyyy") + " nu a inceput inca !");
  }
  return *day;
}

}  // namespace tevra::batch
