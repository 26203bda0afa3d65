#include "bench/ExchangeFloor.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <libxml/xmlwriter.h>
#include <sqlite3.h>

#include "bench/BareRows.h"

namespace tevra::bench {

namespace {

constexpr const char* kBegin = "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; BEGIN IMMEDIATE";

void Run(sqlite3* db, const char* sql) {
  const int code = sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
}

sqlite3_stmt* Prepare(sqlite3* db, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr);
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
  return statement;
}

const xmlChar* Chars(const void* text) {
  return static_cast<const xmlChar*>(text);
}

}  // namespace

int RunExportFloor(const std::filesystem::path& company, const std::filesystem::path& file) {
  sqlite3* db = OpenBare(company.string());
  Run(db, kBegin);
  sqlite3_stmt* rows = Prepare(db, "SELECT * FROM Kv_Linii");
  const int columns = sqlite3_column_count(rows);
  xmlTextWriterPtr xml = xmlNewTextWriterFilename(file.c_str(), 0);
  xmlTextWriterStartElement(xml, Chars("data"));
  int lines = 0;
  for (; sqlite3_step(rows) == SQLITE_ROW; ++lines) {
    xmlTextWriterStartElement(xml, Chars("row"));
    for (int i = 0; i < columns; ++i) {
      if (sqlite3_column_type(rows, i) == SQLITE_NULL) continue;
      xmlTextWriterWriteAttribute(xml, Chars(sqlite3_column_name(rows, i)),
                                  Chars(sqlite3_column_text(rows, i)));
    }
    xmlTextWriterEndElement(xml);
  }
  xmlTextWriterEndDocument(xml);
  xmlFreeTextWriter(xml);
  sqlite3_finalize(rows);
  Run(db, "UPDATE Kv_Linii SET CodIE = 'E'; COMMIT");
  sqlite3_close(db);
  return lines;
}

int RunImportFloor(const std::filesystem::path& from, const std::filesystem::path& to) {
  sqlite3* source = OpenBare(from.string());
  sqlite3* target = OpenBare(to.string());
  Run(target, kBegin);
  sqlite3_stmt* rows = Prepare(source, "SELECT * FROM Kv_Linii");
  const int columns = sqlite3_column_count(rows);
  std::string marks = "?";
  for (int i = 1; i < columns; ++i) marks += ",?";
  sqlite3_stmt* insert = Prepare(target, "INSERT INTO Kv_Linii VALUES (" + marks + ")");
  int lines = 0;
  for (; sqlite3_step(rows) == SQLITE_ROW; ++lines) {
    for (int i = 0; i < columns; ++i) {
      sqlite3_bind_value(insert, i + 1, sqlite3_column_value(rows, i));
    }
    if (sqlite3_step(insert) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(target));
    sqlite3_reset(insert);
  }
  sqlite3_finalize(rows);
  sqlite3_finalize(insert);
  Run(target, "COMMIT");
  sqlite3_close(source);
  sqlite3_close(target);
  return lines;
}

}  // namespace tevra::bench
