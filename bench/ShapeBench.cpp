// The charges by account of 32,767 assets opened as a report opens them, against the bare statement
// of their rows ordered by account; and all their rows looked at page by page.
//
//   bench-shape [--short] [--benchmark_repetitions=N]
//
// Prints, behind the times, opening to bare statement (at most 1.5) and what reading adds to it.
#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "bench/BareRows.h"
#include "bench/BestTimes.h"
#include "bench/GeneratedCompany.h"
#include "platform/shape/ShapedRecordset.h"
#include "reports/DataEnv.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

const char* const kCommand = "CH_Cont_Grouping";

// What the command's words say, without the dialect.
const char* const kBareRows =
    "SELECT NRCRT, COD, CONT, DENUMIRE, iif(BLOCATA, VAL_BLOCATA * COTAL_LUNARA, (VAL_CUMP - "
    "VALCHELEI) * COTAL_LUNARA) AS VAL_AMOR, VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_AMOR_CUMULATA + "
    "VAL_RAMASA AS VAL_CUMP, SUM(I_IMO.VAL_CUMP), SUM(iif(BLOCATA, VAL_BLOCATA * COTAL_LUNARA, "
    "(VAL_CUMP - VALCHELEI) * COTAL_LUNARA)), SUM(VAL_AMOR_CUMULATA), SUM(VAL_RAMASA), "
    "COTAL_LUNARA FROM I_IMO GROUP BY COD, CONT, DENUMIRE, NRCRT, VAL_AMOR_CUMULATA, VAL_RAMASA, "
    "I_IMO.VAL_CUMP, VALCHELEI, COTAL_LUNARA, BLOCATA, VAL_BLOCATA ORDER BY CONT, NRCRT";

void Open(benchmark::State& state, Connection* connection) {
  const std::string text = DataEnv().CommandText(kCommand);
  while (state.KeepRunning()) {
    const ShapedRecordset rows(*connection, text);
    benchmark::DoNotOptimize(rows.GrandTotal(0));
  }
}

void Read(benchmark::State& state, Connection* connection) {
  const ShapedRecordset rows(*connection, DataEnv().CommandText(kCommand));
  while (state.KeepRunning()) {
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      for (std::size_t f = 0; f < rows.Fields().size(); ++f) {
        benchmark::DoNotOptimize(rows.ValueAt(row, f));
      }
    }
  }
}

void Bare(benchmark::State& state, sqlite3* db) {
  while (state.KeepRunning()) {
    ReadBareRows(db, kBareRows);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const int rows = RowsOf(IsShort(argc, argv));
  const GeneratedCompany company(rows);
  Connection connection(company.ConnectionString());
  sqlite3* bare = OpenBare(company.File());
  Add("open", Open, &connection);
  Add("read", Read, &connection);
  Add("bare", Bare, bare);
  BestTimes times;
  RunInTurns(argc, argv, times);
  sqlite3_close(bare);

  std::printf("\nopening %d assets to bare statement:  %.2f (at most 1.5)\n", rows,
              times.Of("open") / times.Of("bare"));
  std::printf("all rows page by page:      %.2f of it\n", times.Of("read") / times.Of("bare"));
  return 0;
}
