#include "template/BuildTemplate.h"

#include <algorithm>
#include <fstream>
#include <vector>

#include <sqlite3.h>

#include "platform/data/Catalogue.h"
#include "platform/data/CompanyFile.h"
#include "platform/data/FilePassword.h"
#include "platform/data/TableLoader.h"
#include "platform/system/Clock.h"
#include "platform/system/Paths.h"
#include "platform/text/Failure.h"
#include "session/Module1.h"
#include "session/Version.h"
#include "template/Schema.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

std::ifstream OpenSource(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw Failure(kFileNotFound, "File not found: " + file.string());
  return in;
}

// The only place where a company file is created; everything else copies files.
void CreateEmpty(const fs::path& file) {
  sqlite3* db = nullptr;
  const int opened =
      sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  const std::string mark = "PRAGMA application_id=" + std::to_string(kApplicationId);
  const bool done = opened == SQLITE_OK &&
                    sqlite3_exec(db, mark.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK &&
                    sqlite3_exec(db, "CREATE TABLE sys_nou (X); DROP TABLE sys_nou", nullptr,
                                 nullptr, nullptr) == SQLITE_OK;
  sqlite3_close(db);
  if (!done) throw Failure(kDatabaseNotOpened, "Baza de date nu poate fi creata: " + file.string());
}

// Adds the source's name to a failure.
template <typename Call>
auto Reading(const fs::path& file, Call call) {
  try {
    return call();
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), file.string() + ": " + failure.Description());
  }
}

void LoadData(Connection& connection, const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".csv") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const fs::path& file : files) {
    std::ifstream in = OpenSource(file);
    const LoadResult result =
        Reading(file, [&] { return LoadTable(connection, in, file.stem().string(), true); });
    if (result.refused.empty()) continue;
    const RefusedRow& first = result.refused.front();
    throw Failure(kValueNotAccepted,
                  file.string() + ":" + std::to_string(first.line) + ": " + first.reason);
  }
}

void AddCompanyRows(Connection& connection) {
  const int year = clock::Today().Year();
  const DateTime start(year, 1, 1);
  const DateTime end(year, 12, 31);
  connection.Execute(
      "INSERT INTO kv_par (DATAIN, DATASN, DATAIN1, DATASN1, DATAIC, DATASC, CONTFURNIZORI, "
      "CONTCLIENTI, CODDeviza, CONTObiecteInventar) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
      {start, end, start.AddMonths(12), end.AddMonths(12), start, end, "404", "4111", "EUR",
       "303"});
  connection.Execute("INSERT INTO kv_info (VERSIUNE) VALUES (?)", {kRevision});
}

void Fill(Connection& connection, const fs::path& sources) {
  const fs::path file = sources / "schema.txt";
  std::ifstream description = OpenSource(file);
  const Schema schema = Reading(file, [&] { return ReadSchema(description); });
  Catalogue catalogue(connection);
  Transaction transaction(connection);
  for (const TableDef& table : schema.tables) catalogue.CreateTable(table);
  for (const QueryDef& query : schema.queries) catalogue.CreateQuery(query);
  LoadData(connection, sources / "data");
  AddCompanyRows(connection);
  SetFilePassword(connection, kFilePassword);
  transaction.Commit();
}

}  // namespace

void BuildTemplate(const fs::path& sources, const fs::path& target) {
  paths::ReplaceFile(target, [&](const fs::path& file) {
    CreateEmpty(file);
    {
      Connection connection("Data Source=" + file.string() + ";Mode=Share Exclusive");
      Fill(connection, sources);
    }
    RequireSoleUse(file);
  });
}

}  // namespace tevra
