// The register of 32,767 assets as its screen opens and scrolls it, against the bare statements
// that its first page and its totals need.
//
//   bench-list [--short] [--benchmark_repetitions=N]
//
// Prints, behind the times, list to bare statements and, unless the run is short, what the whole
// screen takes, and what a page costs while scrolling (at most 2 ms).
#include <QApplication>
#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "bench/BareRows.h"
#include "bench/BestTimes.h"
#include "bench/GeneratedCompany.h"
#include "platform/data/Recordset.h"
#include "register/AssetList.h"
#include "register/frmImo.h"
#include "session/Session.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

constexpr std::size_t kPage = 64;

const char* const kBarePage =
    "SELECT A.*, L.TITLU, T.NUME, C.TITLU FROM I_IMO A LEFT JOIN I_LOCALIZARE L ON L.COD = "
    "A.COD_LOC LEFT JOIN kv_Ter T ON T.COD = A.COD_FURNIZOR LEFT JOIN Kv_CC C ON C.COD = A.COD_CC "
    "ORDER BY A.NRCRT DESC LIMIT 64";
const char* const kBareTotals =
    "SELECT count(*), sum(VAL_CUMP), sum(VAL_CUMP_VAL), sum(VAL_AMOR_CUMULATA), "
    "sum(VAL_AMOR_CUMULATA_VAL), sum(VAL_RAMASA), sum(VAL_RAMASA_VAL) FROM I_IMO";

void LookAtPage(Recordset& rows, std::size_t first) {
  for (std::size_t row = first; row < std::min(first + kPage, rows.RecordCount()); ++row) {
    for (std::size_t f = 0; f < rows.FieldCount(); ++f) {
      benchmark::DoNotOptimize(rows.ValueAt(row, f));
    }
  }
}

void List(benchmark::State& state, Connection* connection) {
  while (state.KeepRunning()) {
    Recordset rows = connection->OpenKeyset(AssetListStatement() + kNewestFirst, {},
                                            {kTotalledFields.begin(), kTotalledFields.end()});
    LookAtPage(rows, 0);
    for (const char* field : kTotalledFields) benchmark::DoNotOptimize(rows.Total(field));
  }
}

void Scroll(benchmark::State& state, Connection* connection) {
  Recordset rows = connection->OpenKeyset(AssetListStatement() + kNewestFirst);
  while (state.KeepRunning()) {
    for (std::size_t first = 0; first < rows.RecordCount(); first += kPage) LookAtPage(rows, first);
  }
}

void Sort(benchmark::State& state, Connection* connection) {
  Recordset rows = connection->OpenKeyset(AssetListStatement() + kNewestFirst);
  while (state.KeepRunning()) {
    rows.SetSort("");
    rows.SetSort("DENUMIRE");
  }
}

// The screen as the menu opens it, painted once.
void Screen(benchmark::State& state, const GeneratedCompany* company) {
  CurrentSession().connectionString = company->ConnectionString();
  while (state.KeepRunning()) {
    frmImo screen;
    screen.show();
    benchmark::DoNotOptimize(screen.grab());
  }
}

void Bare(benchmark::State& state, sqlite3* db) {
  while (state.KeepRunning()) {
    for (const char* sql : {kBarePage, kBareTotals}) ReadBareRows(db, sql);
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const bool isShort = IsShort(argc, argv);
  const QApplication application(argc, argv);
  const int rows = RowsOf(isShort);
  const GeneratedCompany company(rows);
  Connection connection(company.ConnectionString());
  sqlite3* bare = OpenBare(company.File());
  Add("list", List, &connection);
  Add("bare", Bare, bare);
  if (!isShort) {
    Add("screen", Screen, &company);
    Add("scroll", Scroll, &connection);
    Add("sort", Sort, &connection);
  }
  BestTimes times;
  RunInTurns(argc, argv, times);
  sqlite3_close(bare);

  std::printf("\nlist of %d assets to bare statements:  %.2f (at most 1.3)\n", rows,
              times.Of("list") / times.Of("bare"));
  if (isShort) return 0;
  const double pages = static_cast<double>((static_cast<std::size_t>(rows) + kPage - 1) / kPage);
  std::printf("the screen, in all:       %.0f ms\n", times.Of("screen"));
  std::printf("a page while scrolling:   %.2f ms (at most 2)\n", times.Of("scroll") / pages);
  return 0;
}
