#include "app/batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <memory>

#include "app/batch/groups/Groups.h"
#include "session/Version.h"

namespace tevra::batch {

namespace {

std::string VersionText() {
  return "tevra-batch " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) +
         " (structura bazei de date: " + std::to_string(kRevision) + ")\n";
}

// The library's messages begin with the name of the argument.
std::string Until(const std::string& text, char end) {
  return text.substr(0, text.find(end));
}

class Parser {
 public:
  Parser() {
    SetUpHelp();
    AddProgramOptions();
    AddCompanyCommands(commands_);
    AddMonthCommands(commands_);
    AddAssetCommands(commands_);
    AddObjectCommands(commands_);
    AddRatesCommands(commands_);
    AddExchangeCommands(commands_);
    AddCareCommands(commands_);
    AddConversionCommands(commands_);
    AddReportCommands(commands_);
  }

  CommandLine Parse(int argc, const char* const* argv) {
    try {
      app_.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
      line_.help = app_.help();
      return line_;
    } catch (const CLI::CallForVersion&) {
      line_.help = VersionText();
      return line_;
    } catch (const CLI::RequiredError& missing) {
      throw UsageError("Lipseste argumentul " + Until(missing.what(), ' ') + " !");
    } catch (const CLI::ArgumentMismatch& mismatch) {
      throw UsageError("Lipseste valoarea optiunii " + Until(mismatch.what(), ':') + " !");
    } catch (const CLI::ParseError& error) {
      throw UsageError("Linia de comanda nu poate fi citita: " + std::string(error.what()) + " !");
    }
    commands_.Choose();
    CheckProgramOptions();
    return line_;
  }

 private:
  void SetUpHelp() {
    auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", "Folosire");
    formatter->label("OPTIONS", "OPTIUNI");
    formatter->label("SUBCOMMAND", "COMANDA");
    formatter->label("Positionals", "Argumente");
    formatter->label("REQUIRED", "(obligatoriu)");
    formatter->column_width(34);
    app_.formatter(formatter);
    app_.option_defaults()->group("Optiuni")->take_last();
    AddHelp(app_);
    app_.set_version_flag("--version", VersionText(), "Arata versiunea programului");
    app_.fallthrough();
    app_.allow_extras();
    app_.require_subcommand(0, 1);
    app_.footer(
        "Ajutorul unei comenzi: tevra-batch COMANDA --help\n"
        "Coduri de iesire: 0 efectuat, 1 refuzat, 2 linie de comanda gresita");
  }

  void AddProgramOptions() {
    app_.add_option("--dir", line_.directory, "Directorul societatilor (implicit cel curent)")
        ->type_name("DIR");
    app_.add_option("--company", line_.company, "Codul societatii (implicit 01)")->type_name("COD");
    app_.add_option("--user", line_.user, "Utilizatorul societatii")->type_name("NUME");
    passwordFile_ = app_.add_option("--password-file", password_,
                                    "Fisier cu parola pe primul rand (altfel parola se cere)");
    passwordFile_->type_name("FISIER");
    app_.add_flag("--yes", line_.yes,
                  "Raspunde Da la intrebari (altfel o intrebare opreste comanda)");
    app_.add_flag("--verbose", line_.verbose,
                  "Arata si ce se scrie in jurnal: erorile cu instructiunile lor");
  }

  void CheckProgramOptions() {
    if (passwordFile_->count() > 0) line_.passwordFile = password_;
    if (line_.needs != Needs::kNothing && line_.user.empty()) {
      throw UsageError("Lipseste optiunea --user !");
    }
  }

  CLI::App app_{"Imobilizari si amortizarea lor, din linia de comanda", "tevra-batch"};
  CommandLine line_;
  CommandSet commands_{app_, line_};
  CLI::Option* passwordFile_ = nullptr;
  std::string password_;
};

}  // namespace

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  return Parser().Parse(argc, argv);
}

}  // namespace tevra::batch
