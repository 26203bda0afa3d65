#include <istream>

#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/Catalogue.h"
#include "platform/data/TableLoader.h"
#include "session/Session.h"
#include "session/TableRights.h"

namespace tevra::batch {

namespace {

// The table's own spelling of its name.
std::string RequireTable(Connection& connection, const std::string& written) {
  const Session& session = CurrentSession();
  const Catalogue catalogue(connection);
  if (!catalogue.HasTable(written) || catalogue.Table(written).system) {
    throw Refusal("Tabela " + written + " nu exista in " + session.selectedDatabase + " !");
  }
  const std::string table = catalogue.Table(written).name;
  if (!MayChangeTable(session.userType, table)) {
    throw Refusal("Utilizatorul " + session.userName + " nu are dreptul sa modifice tabela " +
                  table + " !");
  }
  return table;
}

LoadResult Load(Connection& connection, std::istream& csv, const std::string& table,
                const std::string& source) {
  try {
    Transaction transaction(connection);
    const LoadResult result = LoadTable(connection, csv, table);
    // A file that could not be read to its end does not contain all rows.
    if (csv.bad()) throw Refusal("Fisierul \"" + source + "\" nu poate fi citit !");
    if (result.refused.empty()) transaction.Commit();
    return result;
  } catch (const Failure& failure) {
    const bool namesCompany = failure.Description().find(connection.Path()) != std::string::npos;
    throw Refusal(ErrorText(failure, namesCompany ? "" : source), failure);
  }
}

}  // namespace

void LoadFile(const std::string& file, const std::string& table, const Streams& streams) {
  const bool standardInput = file == "-";
  const std::string source = standardInput ? "intrarea standard" : file;
  std::ifstream opened;
  if (!standardInput) opened = OpenInput(file);

  Connection connection(CurrentSession().connectionString);
  const std::string name = RequireTable(connection, table);
  const LoadResult result = Load(connection, standardInput ? streams.in : opened, name, source);
  for (const RefusedRow& row : result.refused) {
    streams.err << source << ", linia " << row.line << ": " << row.reason << '\n';
  }
  if (!result.refused.empty()) throw Refusal("Nici un rand nu a fost incarcat !");
  streams.out << result.rows << " randuri incarcate in " << name << '\n';
}

}  // namespace tevra::batch
