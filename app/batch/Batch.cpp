#include "app/batch/Batch.h"

#include <ostream>

#include "app/batch/CommandLine.h"
#include "app/batch/Login.h"
#include "app/batch/Refusal.h"
#include "app/batch/Streams.h"
#include "app/batch/commands/Commands.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

void RunOnCompany(const CommandLine& line, const Streams& streams) {
  // Before anybody types a password.
  const bool dated = line.command == Command::Calculate || line.command == Command::Asset;
  const DateTime date = dated ? ParseDate(line.date) : DateTime();
  for (const std::string* day : {&line.date, &line.from, &line.to}) {
    if (!day->empty()) ParseDate(*day);
  }
  Login({line.directory, line.company, line.user, line.passwordFile}, streams);
  switch (line.command) {
    case Command::Load:
      return LoadFile(line.file, line.table, streams);
    case Command::Calculate:
      return Calculate(date, line.post, streams.out);
    case Command::Asset:
      return CalculateOneAsset(line.code, date, line.csv, streams.out);
    case Command::Plan:
      return WritePlan(line.nrcrt, line.csv, streams.out);
    case Command::Report:
      return WriteReport(line, streams);
    case Command::Assets:
      return ListAssets(line.csv, streams.out);
    default:
      return ListCharges(line.grouping, line.csv, streams.out);
  }
}

void Run(const CommandLine& line, const Streams& streams) {
  if (line.help) {
    streams.out << *line.help;
  } else if (line.command == Command::Companies) {
    ListCompanies(line.directory, streams.out);
  } else if (line.command == Command::Create) {
    CreateCompany(line.directory, line.code, line.name, line.existing, streams.out);
  } else if (line.command == Command::Rebuild) {
    RebuildList(line.directory, streams.out);
  } else {
    RunOnCompany(line, streams);
  }
  // A reader that went away or a full disk shows only here.
  streams.out.flush();
  if (!streams.out) throw Refusal("Rezultatul nu poate fi scris !");
}

}  // namespace

int RunBatch(int argc, const char* const* argv, std::istream& in, std::ostream& out,
             std::ostream& err) {
  CurrentSession() = {};
  try {
    Run(ParseCommandLine(argc, argv), {in, out, err});
    return kDone;
  } catch (const UsageError& error) {
    err << error.what() << "\nFolosire: tevra-batch [OPTIUNI] COMANDA; vezi tevra-batch --help\n";
    return kUsage;
  } catch (const Refusal& refusal) {
    err << refusal.what() << '\n';
  } catch (const Failure& failure) {
    err << ErrorText(failure, CurrentSession().selectedDatabase) << '\n';
  } catch (const std::exception& error) {
    err << "Eroare neasteptata - " << error.what() << '\n';
  }
  return kRefused;
}

}  // namespace tevra::batch
