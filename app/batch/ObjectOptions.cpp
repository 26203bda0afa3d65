#include "app/batch/ObjectOptions.h"

#include <CLI/CLI.hpp>

namespace tevra::batch {

namespace {

struct Option {
  const char* name;
  std::string ObjectOptions::*value;
  const char* type;
  const char* description;
};

constexpr Option kOptions[] = {
    {"--code", &ObjectOptions::code, "COD", "Numarul de inventar, cel mult 20 de caractere"},
    {"--name", &ObjectOptions::name, "TEXT", "Denumirea, cel mult 50 de caractere"},
    {"--centre", &ObjectOptions::centre, "COD", "Centrul de cost"},
    {"--location", &ObjectOptions::location, "COD", "Localizarea"},
    {"--document", &ObjectOptions::document, "TEXT", "Documentul, cel mult 15 caractere"},
    {"--supplier", &ObjectOptions::supplier, "COD", "Codul furnizorului"},
    {"--vat", &ObjectOptions::vat, "COD", "Codul cotei de TVA deductibila"},
    {"--account", &ObjectOptions::account, "CONT", "Contul obiectului, de exemplu 303"},
    {"--notes", &ObjectOptions::notes, "TEXT", "Observatii, cel mult 100 de caractere"},
    {"--person", &ObjectOptions::person, "TEXT", "Persoana care il are in evidenta"},
    {"--value", &ObjectOptions::value, "SUMA", "Valoarea in lei, fara TVA: 1234,56"},
    {"--rate", &ObjectOptions::rate, "CURS", "Cursul valutar: 5,0924"},
    {"--currency-value", &ObjectOptions::currencyValue, "SUMA",
     "Valoarea in valuta (implicit valoarea in lei impartita la curs)"},
    {"--bought", &ObjectOptions::bought, "DATA", "Data achizitiei: ZZ.LL.AAAA (implicit azi)"},
    {"--in-service", &ObjectOptions::inService, "DATA",
     "Data punerii in functiune: ZZ.LL.AAAA (implicit azi)"},
};

}  // namespace

std::vector<const std::string*> ObjectOptions::All() const {
  std::vector<const std::string*> all;
  for (const Option& option : kOptions) all.push_back(&(this->*option.value));
  return all;
}

void AddObjectOptions(CLI::App& command, ObjectOptions& options) {
  for (const Option& option : kOptions) {
    command.add_option(option.name, options.*option.value, option.description)
        ->type_name(option.type);
  }
}

}  // namespace tevra::batch
