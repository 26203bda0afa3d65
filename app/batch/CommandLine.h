// Reads the command line and checks its form.
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "app/batch/BackupOptions.h"
#include "app/batch/DisposalOptions.h"
#include "app/batch/ObjectOptions.h"
#include "app/batch/monthend/MonthEndOptions.h"
#include "session/Companies.h"

namespace tevra::batch {

struct Job;

/// What a command needs before it runs.
enum class Needs {
  kNothing,
  kClosedCompany,  ///< a login to a company of any structure, whose file is closed again
  kOpenCompany
};

/// The grouping of charges; inventory objects have a person instead of a class. The values are the
/// reports' codes.
enum class Grouping { Account, Class, Location, Centre };

enum class ReportKind { Charges, Purchases, Inventory };

struct CommandLine {
  std::string commandName;  ///< as written
  Needs needs = Needs::kNothing;
  std::function<void(const Job&)> run;
  bool writesReports = false;       ///< needs the program that writes reports
  bool verbose = false;             ///< the log's lines go to the error output, too
  bool yes = false;                 ///< questions are answered Yes
  std::optional<std::string> help;  ///< help or version, asked for: this text is the whole result

  std::string directory = ".";
  std::string company = "01";
  std::string user;                         ///< not empty when the command logs in
  std::optional<std::string> passwordFile;  ///< without one the program asks for the password
  /// When the company's file is missing or damaged, this backup says who the users are.
  std::string usersFile;

  /// Of the company to create, the COD of the asset (empty for a disposal by NRCRT) or the
  /// currency.
  std::string code;
  std::string name;                               ///< of the company to create
  ExistingFile existing = ExistingFile::kRefuse;  ///< of the company to create
  /// CSV to load, "-" for the standard input; the file of rates; or the backup to restore.
  std::string file;
  std::string table;     ///< to load into
  std::string date;      ///< of the calculation, as written
  bool post = false;     ///< also posts the month's charges
  std::string month;     ///< of the transfer, as written
  bool full = false;     ///< of a check: compares the indexes, too
  bool dryRun = false;   ///< shows what would be done and writes nothing
  std::string rateDay;   ///< whose rate of `code` to print, as written
  std::string nrcrt;     ///< of the asset or object, as written
  ObjectOptions object;  ///< to add
  DisposalOptions disposal;
  BackupOptions backup;
  MonthEndOptions monthEnd;
  Grouping grouping = Grouping::Account;
  ReportKind report = ReportKind::Charges;
  std::string currency = "LEI";
  bool groupsOnly = false;  ///< of a report of charges: without its rows
  std::string from;         ///< first and last day of a report or an export, as written
  std::string to;
  bool again = false;        ///< also a period that was exported or a month that was posted before
  std::string paper = "A4";  ///< of a report: one of kPaperNames, in any case
  bool landscape = false;
  std::string pdf;  ///< the file that a report is written to
  bool csv = false;
};

/// A wrong command line; what() says why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the program's arguments. Throws UsageError for an unknown command or option, a missing or
/// superfluous argument, and a login without user.
CommandLine ParseCommandLine(int argc, const char* const* argv);

}  // namespace tevra::batch
