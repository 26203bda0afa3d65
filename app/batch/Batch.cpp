#include "app/batch/Batch.h"

#include <optional>
#include <ostream>
#include <utility>
#include <vector>

#include "app/batch/CommandLine.h"
#include "app/batch/Login.h"
#include "app/batch/Messages.h"
#include "app/batch/Refusal.h"
#include "app/batch/ReportProgram.h"
#include "app/batch/Streams.h"
#include "app/batch/commands/Commands.h"
#include "care/FileHealth.h"
#include "engine/Module3.h"
#include "exchange/PendingExport.h"
#include "platform/system/Log.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// Checked before the user types a password.
void CheckDates(const CommandLine& line) {
  for (const std::string* day : {&line.date, &line.from, &line.to, &line.rateDay,
                                 &line.object.bought, &line.object.inService}) {
    if (!day->empty()) ParseDate(*day);
  }
  if (!line.month.empty()) ParseMonth(line.month);
}

// The command works on the file as a whole, whatever its structure, and wants it closed.
void CloseAfterLogin(const CommandLine& line, const Streams& streams) {
  LoginRequest request{line.directory, line.company, line.user, line.passwordFile, true};
  if (!line.usersFile.empty()) request.insteadOfDamaged = BackupToRestore(line.usersFile);
  Login(request, streams).Close();
}

void RunCommand(const CommandLine& line, const Streams& streams, const ReportWriters* reports) {
  Job job{line, streams, streams.out, nullptr, reports};
  CheckDates(line);
  if (line.needs == Needs::kClosedCompany) CloseAfterLogin(line, streams);
  if (line.needs != Needs::kOpenCompany) return line.run(job);
  Connection company = Login({line.directory, line.company, line.user, line.passwordFile}, streams);
  SettleExportAtOpening();
  job.company = &company;
  line.run(job);
}

void Run(const CommandLine& line, const Streams& streams, const ReportWriters* reports) {
  if (line.help) {
    streams.out << *line.help;
  } else {
    RunCommand(line, streams, reports);
  }
  // A closed pipe or a full disk is noticed only here.
  streams.out.flush();
  if (!streams.out) throw Refusal("Rezultatul nu poate fi scris !");
}

std::vector<const std::string*> Typed(const CommandLine& line) {
  std::vector<const std::string*> all = line.object.All();
  const auto disposal = line.disposal.All();
  all.insert(all.end(), disposal.begin(), disposal.end());
  all.insert(all.end(), {&line.user, &line.code, &line.name, &line.date, &line.nrcrt, &line.month,
                         &line.currency, &line.from, &line.to, &line.rateDay, &line.file,
                         &line.monthEnd.date, &line.monthEnd.credentials});
  return all;
}

/// Copies the log's lines to the error output while it exists.
class ShownLog {
 public:
  explicit ShownLog(std::ostream& err) : before_(log::SetSink({})) {
    log::SetSink([this, &err](const std::string& line) {
      err << "jurnal: " << line << '\n';
      if (before_) before_(line);
    });
  }
  ~ShownLog() { log::SetSink(before_); }
  ShownLog(const ShownLog&) = delete;
  ShownLog& operator=(const ShownLog&) = delete;

 private:
  log::Sink before_;
};

}  // namespace

int RunBatch(int argc, const char* const* argv, std::istream& in, std::ostream& out,
             std::ostream& err, const ReportWriters* reports) {
  CurrentSession() = {};
  SetBeforeMonth(RequireSoundOnceADay);
  CommandLine line;
  std::optional<ShownLog> shown;
  try {
    line = ParseCommandLine(argc, argv);
    if (line.verbose) shown.emplace(err);
    const BatchMessages messages(err, line.yes);
    // Before the password is read, because the other program reads it.
    if (line.writesReports && !line.help && !reports) StartReportProgram(argv);
    Run(line, {in, out, err}, reports);
    return kDone;
  } catch (const UsageError& error) {
    err << error.what() << "\nFolosire: tevra-batch [OPTIUNI] COMANDA; vezi tevra-batch --help\n";
    return kUsage;
  } catch (const Refusal& refusal) {
    LogRefusal(refusal, Typed(line), line.commandName);
    err << refusal.what() << (refusal.Cause() ? SoundBackupHint(*refusal.Cause()) : "") << '\n';
  } catch (const Failure& failure) {
    log::NoteFailure(failure, line.commandName);
    err << ErrorText(failure, CurrentSession().selectedDatabase) << SoundBackupHint(failure)
        << '\n';
  } catch (const std::exception& error) {
    log::NoteFailure({kInternalError, error.what()}, line.commandName);
    err << "Eroare neasteptata - " << error.what() << '\n';
  }
  return kRefused;
}

}  // namespace tevra::batch
