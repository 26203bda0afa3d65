// Companies and their data.
#include <CLI/CLI.hpp>
#include <memory>

#include "app/batch/commands/Commands.h"
#include "app/batch/groups/Groups.h"

namespace tevra::batch {

namespace {

struct ExistingOptions {
  bool takeOver = false;
  bool replace = false;
};

void CheckCreate(const CLI::App& create, const ExistingOptions& options, CommandLine& line) {
  if (options.takeOver && options.replace) {
    throw UsageError("Optiunea --replace exclude --take-over !");
  }
  if (options.takeOver) line.existing = ExistingFile::kTakeOver;
  if (options.replace) line.existing = ExistingFile::kReplace;
  if (!options.takeOver && create.count("DENUMIRE") == 0) {
    throw UsageError("Lipseste argumentul DENUMIRE !");
  }
}

void AddCreate(CommandSet& commands) {
  CommandLine& line = commands.Line();
  CLI::App& create = commands.Add({"create",
                                   "Creeaza o societate noua",
                                   {{"COD", &line.code, "Codul: una sau doua litere sau cifre"}},
                                   Needs::kNothing,
                                   [](const Job& job) {
                                     CreateCompany(job.line.directory, job.line.code, job.line.name,
                                                   job.line.existing, job.out);
                                   }});
  create
      .add_option("DENUMIRE", line.name,
                  "Denumirea, cel mult 50 de caractere (la preluare implicit cea din baza de "
                  "date)")
      ->type_name("");
  const auto options = std::make_shared<ExistingOptions>();
  create.add_flag("--take-over", options->takeOver,
                  "Preia asa cum este baza de date care exista deja in director");
  create.add_flag("--replace", options->replace,
                  "Inlocuieste baza de date care exista deja; cea veche ramane in Salv_Tevra");
  commands.Check(create, [&create, options, &line] { CheckCreate(create, *options, line); });
}

}  // namespace

void AddCompanyCommands(CommandSet& commands) {
  CommandLine& line = commands.Line();
  commands.Add(
      {"companies", "Afiseaza societatile din director", {}, Needs::kNothing, [](const Job& job) {
         ListCompanies(job.line.directory, job.out);
       }});
  AddCreate(commands);
  commands.Add({"rebuild",
                "Trece in lista societatilor bazele de date din director care ii lipsesc; o lista "
                "deteriorata se reface",
                {},
                Needs::kNothing,
                [](const Job& job) { RebuildList(job.line.directory, job.out); }});
  commands.Add({"load",
                "Incarca randurile unui fisier CSV, toate sau niciunul",
                {{"FISIER", &line.file,
                  "Fisierul CSV, cu numele campurilor pe primul rand; - este intrarea "
                  "standard"},
                 {"TABELA", &line.table, "Tabela in care se incarca"}},
                Needs::kOpenCompany,
                [](const Job& job) { LoadFile(job.line.file, job.line.table, job.streams); }});
}

}  // namespace tevra::batch
