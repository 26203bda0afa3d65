#include "app/batch/DisposalOptions.h"

#include <CLI/CLI.hpp>

#include "app/batch/CommandLine.h"

namespace tevra::batch {

namespace {

struct Option {
  const char* name;
  std::string DisposalOptions::*value;
  const char* type;
  const char* description;
  bool ofSaleOnly;
};

constexpr Option kOptions[] = {
    {"--price", &DisposalOptions::price, "SUMA", "Pretul de vanzare in lei, fara TVA: 1234,56",
     true},
    {"--client", &DisposalOptions::client, "COD", "Codul clientului din tabela de terti", false},
    {"--document", &DisposalOptions::document, "TEXT", "Documentul iesirii", false},
    {"--expense", &DisposalOptions::expense, "CONT", "Contul de cheltuieli cu iesirea", false},
    {"--customer", &DisposalOptions::customer, "CONT", "Contul de client", true},
    {"--revenue", &DisposalOptions::revenue, "CONT", "Contul de venituri din vanzare", true},
    {"--vat", &DisposalOptions::vat, "COD", "Codul cotei de TVA colectata", true},
};

}  // namespace

std::vector<const std::string*> DisposalOptions::All() const {
  std::vector<const std::string*> all;
  for (const Option& option : kOptions) all.push_back(&(this->*option.value));
  return all;
}

void AddDisposalOptions(CLI::App& command, CommandLine& line) {
  command.add_option("COD", line.code, "Numarul de inventar; lipseste cu --nrcrt")->type_name("");
  command.add_option("DATA", line.date, "Data iesirii: ZZ.LL.AAAA")->type_name("");
  command.add_option("--nrcrt", line.nrcrt, "Numarul curent, unde un cod are mai multe")
      ->type_name("N");
  command.add_flag("--scrap", line.disposal.scrap, "Casare: nu scrie nota contabila");
  command.add_flag("--sell", line.disposal.sell, "Vanzare: scrie notele contabile ale vanzarii");
  for (const Option& option : kOptions) {
    command.add_option(option.name, line.disposal.*option.value, option.description)
        ->type_name(option.type);
  }
}

void CheckDisposalOptions(const CLI::App& command, CommandLine& line) {
  if (command.count("--nrcrt") > 0) {
    if (!line.date.empty()) throw UsageError("Optiunea --nrcrt exclude argumentul COD !");
    line.date.swap(line.code);
  } else if (line.code.empty()) {
    throw UsageError("Lipseste argumentul COD !");
  }
  if (line.date.empty()) throw UsageError("Lipseste argumentul DATA !");
  const DisposalOptions& options = line.disposal;
  if (options.scrap == options.sell) {
    throw UsageError(options.scrap ? "Optiunea --sell exclude --scrap !"
                                   : "Lipseste optiunea --scrap sau --sell !");
  }
  if (options.sell) return;
  for (const Option& option : kOptions) {
    if (!option.ofSaleOnly || command.count(option.name) == 0) continue;
    throw UsageError(std::string("Optiunea ") + option.name + " nu se potriveste cu --scrap !");
  }
}

}  // namespace tevra::batch
