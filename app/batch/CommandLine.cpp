#include "app/batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "platform/print/PaperNames.h"
#include "platform/text/Strings.h"
#include "session/Version.h"

namespace tevra::batch {

namespace {

constexpr const char* kOptions = "Optiuni";
constexpr const char* kCommands = "Comenzi";

const std::map<std::string, Grouping> kGroupings{{"account", Grouping::Account},
                                                 {"class", Grouping::Class},
                                                 {"location", Grouping::Location},
                                                 {"centre", Grouping::Centre}};

const std::map<std::string, ReportKind> kReports{{"charges", ReportKind::Charges},
                                                 {"purchases", ReportKind::Purchases},
                                                 {"inventory", ReportKind::Inventory}};

std::string VersionText() {
  return "tevra-batch " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) +
         " (structura bazei de date: " + std::to_string(kRevision) + ")\n";
}

std::string PaperNames() {
  std::string names;
  for (const char* name : kPaperNames) names += (names.empty() ? "" : ", ") + std::string(name);
  return names;
}

std::string PaperHelp() {
  return "Hartia: " + PaperNames() + " (implicit " + kPaperNames.front() + ")";
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
    AddCompanyCommands();
    AddAssetCommands();
    AddObjectCommands();
    AddRatesCommand();
    AddExchangeCommands();
    AddCareCommands();
    AddReportCommand();
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
    Check();
    return line_;
  }

 private:
  struct Argument {
    const char* name;
    std::string* value;
    const char* description;
  };

  void SetUpHelp() {
    auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", "Folosire");
    formatter->label("OPTIONS", "OPTIUNI");
    formatter->label("SUBCOMMAND", "COMANDA");
    formatter->label("Positionals", "Argumente");
    formatter->label("REQUIRED", "(obligatoriu)");
    formatter->column_width(34);
    app_.formatter(formatter);
    app_.option_defaults()->group(kOptions)->take_last();
    AddHelp(&app_);
    app_.set_version_flag("--version", VersionText(), "Arata versiunea programului");
    app_.fallthrough();
    app_.allow_extras();
    app_.require_subcommand(0, 1);
    app_.footer(
        "Ajutorul unei comenzi: tevra-batch COMANDA --help\n"
        "Coduri de iesire: 0 efectuat, 1 refuzat, 2 linie de comanda gresita");
  }

  static void AddHelp(CLI::App* app) { app->set_help_flag("-h,--help", "Arata acest ajutor"); }

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

  void AddCompanyCommands() {
    Add(Command::Companies, "companies", "Afiseaza societatile din director", {});
    CLI::App* create = Add(Command::Create, "create", "Creeaza o societate noua",
                           {{"COD", &line_.code, "Codul: una sau doua litere sau cifre"}});
    create
        ->add_option("DENUMIRE", line_.name,
                     "Denumirea, cel mult 50 de caractere (la preluare implicit cea din baza de "
                     "date)")
        ->type_name("");
    create->add_flag("--take-over", takeOver_,
                     "Preia asa cum este baza de date care exista deja in director");
    create->add_flag("--replace", replace_,
                     "Inlocuieste baza de date care exista deja; cea veche ramane in Salv_Tevra");
    Add(Command::Rebuild, "rebuild",
        "Trece in lista societatilor bazele de date din director care ii lipsesc; o lista "
        "deteriorata se reface",
        {});
    Add(Command::Load, "load", "Incarca randurile unui fisier CSV, toate sau niciunul",
        {{"FISIER", &line_.file,
          "Fisierul CSV, cu numele campurilor pe primul rand; - este intrarea "
          "standard"},
         {"TABELA", &line_.table, "Tabela in care se incarca"}});
  }

  void AddAssetCommands() {
    Add(Command::Calculate, "calculate", "Calculeaza amortizarea tuturor imobilizarilor la o data",
        {{"DATA", &line_.date, "Data calculului: ZZ.LL.AAAA"}})
        ->add_flag("--post", line_.post, "Scrie si notele contabile ale lunii");
    Add(Command::Transfer, "transfer",
        "Trece imobilizarile mici in obiecte de inventar, la sfarsitul unei luni",
        {{"LUNA", &line_.month, "Luna ultimului calcul: LL.AAAA"}})
        ->add_flag("--dry-run", line_.dryRun, "Arata ce ar trece, fara sa scrie nimic");
    AddCsvFlag(Add(Command::Asset, "asset",
                   "Aduce o imobilizare la o data, ca pentru iesire, si o afiseaza",
                   {{"COD", &line_.code, "Numarul de inventar"},
                    {"DATA", &line_.date, "Data calculului: ZZ.LL.AAAA"}}));
    AddCsvFlag(Add(Command::Plan, "plan", "Face si afiseaza planul de amortizare pe ani",
                   {{"NRCRT", &line_.nrcrt, "Numarul curent al imobilizarii"}}));
    AddCsvFlag(Add(Command::Assets, "assets", "Afiseaza imobilizarile si totalurile lor", {}));
    dispose_ = Add(Command::Dispose, "dispose", "Scoate o imobilizare din gestiune", {});
    AddDisposalOptions(*dispose_, line_);
    CLI::App* charges = Add(Command::Charges, "charges",
                            "Afiseaza cheltuielile lunii dupa ultimul calcul, pe grupe", {});
    charges
        ->add_option("--by", by_,
                     "Gruparea: account (cont, implicit), class (cod de clasificare), location "
                     "(localizare), centre (centru de cost)")
        ->type_name("GRUPARE");
    AddCsvFlag(charges);
  }

  void AddObjectCommands() {
    AddCsvFlag(
        Add(Command::Objects, "objects", "Afiseaza obiectele de inventar si totalurile lor", {}));
    AddObjectOptions(
        *Add(Command::AddObject, "object", "Adauga un obiect de inventar si nota lui de cumparare",
             {{"ACTIUNE", &action_, "add"}}),
        line_.object);
    Add(Command::WriteOff, "write-off", "Descarca un obiect de inventar: il trece pe cheltuieli",
        {{"NRCRT", &line_.nrcrt, "Numarul curent al obiectului"}});
  }

  void AddRatesCommand() {
    rates_ = Add(Command::Rates, "rates",
                 "Preia cursurile valutare dintr-un fisier XML al Bancii Nationale",
                 {{"FISIER", &line_.file, "Fisierul XML; cu --at, codul valutei"}});
    rates_
        ->add_option("--at", line_.rateDay,
                     "Afiseaza in loc cursul unei valute intr-o zi (sau dinainte): ZZ.LL.AAAA")
        ->type_name("DATA");
  }

  void AddExchangeCommands() {
    Add(Command::Export, "export", "Scrie datele unei perioade pentru centru, ca fisier XML",
        {{"DELA", &line_.from, "Prima zi a inregistrarilor: ZZ.LL.AAAA"},
         {"LA", &line_.to, "Ultima zi: ZZ.LL.AAAA"}})
        ->add_flag("--again", line_.again, "Exporta si o perioada care a mai fost exportata");
    Add(Command::Import, "import", "Preia datele unei sucursale dintr-un fisier XML",
        {{"FISIER", &line_.file, "Fisierul scris de export"}})
        ->add_flag("--dry-run", line_.dryRun, "Arata ce s-ar schimba, fara sa scrie nimic");
  }

  void AddCareCommands() {
    AddBackupOptions(*Add(Command::Backup, "backup", "Salveaza baza de date", {}), line_.backup);
    Add(Command::Restore, "restore", "Restaureaza baza de date dintr-o salvare",
        {{"FISIER", &line_.file, "Salvarea"}});
    Add(Command::Compact, "compact", "Compacteaza baza de date", {});
    Add(Command::Upgrade, "upgrade", "Actualizeaza structura bazei de date", {})
        ->add_flag("--dry-run", line_.dryRun, "Arata ce s-ar schimba, fara sa scrie nimic");
  }

  void AddReportCommand() {
    report_ = Add(Command::Report, "report", "Scrie un raport ca fisier PDF",
                  {{"RAPORT", &kind_, "charges, purchases sau inventory"}});
    const auto option = [&](const char* name, std::string& value, const char* type,
                            const std::string& description) {
      return report_->add_option(name, value, description)->type_name(type);
    };
    option("--pdf", line_.pdf, "FISIER", "Fisierul PDF, inlocuit intreg sau deloc")->required();
    option("--by", by_, "GRUPARE",
           "Gruparea: account (implicit), class (la inventory person), location, centre");
    option("--currency", line_.currency, "VALUTA",
           "Valorile in aceasta valuta: codul sau textul din lista (implicit LEI)");
    option("--date", line_.date, "DATA",
           "charges: luna din titlu (implicit luna celor mai multe calcule): ZZ.LL.AAAA");
    option("--from", line_.from, "DATA", "purchases, inventory: prima zi: ZZ.LL.AAAA");
    option("--to", line_.to, "DATA", "purchases, inventory: ultima zi: ZZ.LL.AAAA");
    option("--paper", line_.paper, "HARTIE", PaperHelp());
    option("--orientation", orientation_, "ORIENTARE", "portrait (implicit) sau landscape");
    report_->add_flag("!--no-detail", line_.detail, "charges: numai grupele si totalurile");
  }

  CLI::App* Add(Command command, const char* name, const char* description,
                const std::vector<Argument>& arguments) {
    CLI::App* sub = app_.add_subcommand(name, description);
    sub->group(kCommands);
    sub->footer("Optiunile programului: tevra-batch --help");
    AddHelp(sub);
    for (const Argument& argument : arguments) {
      sub->add_option(argument.name, *argument.value, argument.description)
          ->type_name("")
          ->required();
    }
    commands_.emplace_back(sub, command);
    return sub;
  }

  void AddCsvFlag(CLI::App* sub) {
    sub->add_flag("--csv", line_.csv, "Scrie rezultatul ca fisier CSV");
  }

  void Check() {
    const CLI::App* chosen = nullptr;
    for (const auto& [app, command] : commands_) {
      if (!app->parsed()) continue;
      chosen = app;
      line_.commandName = app->get_name();
      line_.command = command;
    }
    if (const auto unknown = app_.remaining(true); !unknown.empty()) {
      const bool command = !chosen && unknown.front().rfind('-', 0) != 0;
      throw UsageError((command ? "Comanda necunoscuta: " : "Argument necunoscut: ") +
                       unknown.front() + " !");
    }
    if (!chosen) throw UsageError("Lipseste comanda !");
    CheckOptions();
  }

  void CheckReport() {
    const auto report = kReports.find(kind_);
    if (report == kReports.end()) {
      throw UsageError("Raport necunoscut: " + kind_ + " (charges, purchases, inventory) !");
    }
    line_.report = report->second;
    CheckPaper();
    const bool period = line_.report != ReportKind::Charges;
    for (const char* option : {"--from", "--to"}) period ? Require(option) : Forbid(option);
    if (!period) return;
    for (const char* option : {"--date", "--no-detail"}) Forbid(option);
  }

  void CheckPaper() {
    const auto named = [this](const char* name) { return EqualNoCase(name, line_.paper); };
    if (std::none_of(kPaperNames.begin(), kPaperNames.end(), named)) {
      throw UsageError("Hartie necunoscuta: " + line_.paper + " (" + PaperNames() + ") !");
    }
    line_.landscape = orientation_ == "landscape";
    if (!line_.landscape && orientation_ != "portrait") {
      throw UsageError("Orientare necunoscuta: " + orientation_ + " (portrait, landscape) !");
    }
  }

  void Require(const char* option) const {
    if (report_->count(option) > 0) return;
    throw UsageError(std::string("Lipseste optiunea ") + option + " !");
  }

  // The user expects an effect that the option does not have with this report.
  void Forbid(const char* option) const {
    if (report_->count(option) == 0) return;
    throw UsageError(std::string("Optiunea ") + option + " nu se potriveste cu raportul " + kind_ +
                     " !");
  }

  void CheckGrouping() {
    const bool inventory =
        line_.command == Command::Report && line_.report == ReportKind::Inventory;
    const char* second = inventory ? "person" : "class";
    const auto grouping = kGroupings.find(by_ == "person" && inventory ? "class" : by_);
    if (grouping == kGroupings.end() || (inventory && by_ == "class")) {
      throw UsageError("Grupare necunoscuta: " + by_ + " (account, " + second +
                       ", location, centre) !");
    }
    line_.grouping = grouping->second;
  }

  void CheckCreate() {
    if (takeOver_ && replace_) throw UsageError("Optiunea --replace exclude --take-over !");
    if (takeOver_) line_.existing = ExistingFile::kTakeOver;
    if (replace_) line_.existing = ExistingFile::kReplace;
    const CLI::App* create = app_.get_subcommand("create");
    if (!takeOver_ && create->count("DENUMIRE") == 0) {
      throw UsageError("Lipseste argumentul DENUMIRE !");
    }
  }

  void CheckOptions() {
    if (line_.command == Command::Dispose) CheckDisposalOptions(*dispose_, line_);
    if (line_.command == Command::Create) CheckCreate();
    if (line_.command == Command::Report) CheckReport();
    if (line_.command == Command::AddObject && action_ != "add") {
      throw UsageError("Actiune necunoscuta: " + action_ + " (add) !");
    }
    if (rates_->count("--at") > 0) line_.code = std::exchange(line_.file, {});
    CheckBackupOptions(line_.backup);
    CheckGrouping();
    if (passwordFile_->count() > 0) line_.passwordFile = password_;
    if (NeedsLogin(line_.command) && line_.user.empty()) {
      throw UsageError("Lipseste optiunea --user !");
    }
  }

  CLI::App app_{"Imobilizari si amortizarea lor, din linia de comanda", "tevra-batch"};
  CommandLine line_;
  CLI::Option* passwordFile_ = nullptr;
  std::string password_;
  std::string by_ = "account";
  std::string orientation_ = "portrait";
  bool takeOver_ = false;
  bool replace_ = false;
  CLI::App* dispose_ = nullptr;
  CLI::App* rates_ = nullptr;
  CLI::App* report_ = nullptr;
  std::string kind_;    // of the report
  std::string action_;  // with an object
  std::vector<std::pair<CLI::App*, Command>> commands_;
};

}  // namespace

bool NeedsLogin(Command command) {
  return command != Command::Companies && command != Command::Create && command != Command::Rebuild;
}

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  return Parser().Parse(argc, argv);
}

}  // namespace tevra::batch
