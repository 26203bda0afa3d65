// Reports on paper.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>

#include "app/batch/groups/Groupings.h"
#include "app/batch/groups/Groups.h"
#include "platform/print/PaperNames.h"
#include "platform/text/Strings.h"

namespace tevra::batch {

namespace {

const std::map<std::string, ReportKind> kReports{{"charges", ReportKind::Charges},
                                                 {"purchases", ReportKind::Purchases},
                                                 {"inventory", ReportKind::Inventory}};

struct ReportWords {
  std::string kind;
  std::string by = "account";
  std::string orientation = "portrait";
};

std::string PaperNames() {
  std::string names;
  for (const char* name : kPaperNames) names += (names.empty() ? "" : ", ") + std::string(name);
  return names;
}

std::string PaperHelp() {
  return "Hartia: " + PaperNames() + " (implicit " + kPaperNames.front() + ")";
}

void CheckPaper(const ReportWords& words, CommandLine& line) {
  const auto named = [&line](const char* name) { return EqualNoCase(name, line.paper); };
  if (std::none_of(kPaperNames.begin(), kPaperNames.end(), named)) {
    throw UsageError("Hartie necunoscuta: " + line.paper + " (" + PaperNames() + ") !");
  }
  line.landscape = words.orientation == "landscape";
  if (!line.landscape && words.orientation != "portrait") {
    throw UsageError("Orientare necunoscuta: " + words.orientation + " (portrait, landscape) !");
  }
}

void CheckPeriod(const CLI::App& report, const ReportWords& words, const CommandLine& line) {
  const auto require = [&report](const char* option) {
    if (report.count(option) > 0) return;
    throw UsageError(std::string("Lipseste optiunea ") + option + " !");
  };
  // The user expects an effect that the option does not have with this report.
  const auto forbid = [&](const char* option) {
    if (report.count(option) == 0) return;
    throw UsageError(std::string("Optiunea ") + option + " nu se potriveste cu raportul " +
                     words.kind + " !");
  };
  const bool period = line.report != ReportKind::Charges;
  for (const char* option : {"--from", "--to"}) period ? require(option) : forbid(option);
  if (!period) return;
  for (const char* option : {"--date", "--no-detail"}) forbid(option);
}

void CheckReport(const CLI::App& report, const ReportWords& words, CommandLine& line) {
  const auto kind = kReports.find(words.kind);
  if (kind == kReports.end()) {
    throw UsageError("Raport necunoscut: " + words.kind + " (charges, purchases, inventory) !");
  }
  line.writesReports = true;
  line.report = kind->second;
  CheckPaper(words, line);
  CheckPeriod(report, words, line);
  line.grouping = GroupingNamed(words.by, line.report == ReportKind::Inventory);
}

}  // namespace

void AddReportCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  const auto words = std::make_shared<ReportWords>();
  CLI::App& report =
      commands.Add({"report",
                    "Scrie un raport ca fisier PDF",
                    {{"RAPORT", &words->kind, "charges, purchases sau inventory"}},
                    Needs::kOpenCompany,
                    [](const Job& job) { job.reports->report(job.line, job.streams); }});
  const auto option = [&report](const char* name, std::string& value, const char* type,
                                const std::string& description) {
    return report.add_option(name, value, description)->type_name(type);
  };
  option("--pdf", line.pdf, "FISIER", "Fisierul PDF, inlocuit intreg sau deloc")->required();
  option("--by", words->by, "GRUPARE",
         "Gruparea: account (implicit), class (la inventory person), location, centre");
  option("--currency", line.currency, "VALUTA",
         "Valorile in aceasta valuta: codul sau textul din lista (implicit LEI)");
  option("--date", line.date, "DATA",
         "charges: luna din titlu (implicit luna celor mai multe calcule): ZZ.LL.AAAA");
  option("--from", line.from, "DATA", "purchases, inventory: prima zi: ZZ.LL.AAAA");
  option("--to", line.to, "DATA", "purchases, inventory: ultima zi: ZZ.LL.AAAA");
  option("--paper", line.paper, "HARTIE", PaperHelp());
  option("--orientation", words->orientation, "ORIENTARE", "portrait (implicit) sau landscape");
  report.add_flag("--no-detail", line.groupsOnly, "charges: numai grupele si totalurile");
  commands.Check(report, [&report, words, &line] { CheckReport(report, *words, line); });
}

}  // namespace tevra::batch
