// The floor of the benchmarks: a statement run by the engine's own calls.
#pragma once

#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace tevra::bench {

/// Opens a file as cheaply as the engine can: without its mutex, since one thread uses the handle.
inline sqlite3* OpenBare(const std::string& file) {
  sqlite3* db = nullptr;
  const int code =
      sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
  return db;
}

/// Reads every value of every row in its own type, as a program that shows them must.
inline void ReadBareRows(sqlite3* db, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
      if (sqlite3_column_type(statement, i) == SQLITE_FLOAT) {
        benchmark::DoNotOptimize(sqlite3_column_double(statement, i));
      } else {
        benchmark::DoNotOptimize(sqlite3_column_blob(statement, i));
      }
    }
  }
  sqlite3_finalize(statement);
}

}  // namespace tevra::bench
