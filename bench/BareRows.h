// The floor of the benchmarks: a statement run by the engine's own calls.
#pragma once

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace tevra::bench {

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
