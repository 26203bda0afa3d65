// A million accounting lines as their screen opens, searches and scrolls them, against the bare
// statements that the first page and the totals need.
//
//   bench-lines [--benchmark_repetitions=N]
//
// Prints, behind the times, each to its floor, what a page costs while scrolling, and the memory
// that a line takes.
#include <QApplication>
#include <QPushButton>
#include <cstdio>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include "accounting/LineQuery.h"
#include "accounting/frmLinii.h"
#include "bench/BareRows.h"
#include "bench/BestTimes.h"
#include "bench/GeneratedCompany.h"
#include "bench/GeneratedLines.h"
#include "bench/PeakMemory.h"
#include "platform/data/Recordset.h"
#include "session/Session.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

constexpr int kLines = 1'000'000;
constexpr std::size_t kPage = 64;

// The rows in order, which a list must know to show any of them.
const char* const kBareRows = "SELECT rowid FROM Kv_Linii ORDER BY DATAINR DESC, NDI DESC, NRLINIE";
const char* const kBarePage =
    "SELECT NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, EXPL, DOC, MARCA, LITM, CODBUG, "
    "L.COD, CURS, DEVDEBIT, DEVCREDIT, CANTIT, T.NUME, TVA_LINREF, COTATVA, PROV, L.DATASCAD, "
    "L.UTILIZATOR, TIMP, CodSucursala, DocExplicatie FROM Kv_Linii L LEFT JOIN kv_Ter T ON "
    "L.TERT = T.COD ORDER BY DATAINR DESC, NDI DESC, NRLINIE LIMIT 64";
const char* const kBareTotals =
    "SELECT count(*), sum(DEBIT), sum(CREDIT), sum(DEVDEBIT), sum(DEVCREDIT) FROM Kv_Linii";
const char* const kBareFilteredRows =
    "SELECT rowid FROM Kv_Linii WHERE CONT = '6812' AND DATAINR >= '2006-05-01 00:00:00' AND "
    "DATAINR <= '2006-05-31 23:59:59' ORDER BY DATAINR DESC, NDI DESC, NRLINIE";
const char* const kBareFilteredPage =
    "SELECT L.*, T.NUME, C.TITLU FROM (Kv_Linii L LEFT JOIN kv_Ter T ON T.COD = L.TERT) LEFT JOIN "
    "Kv_CC C ON L.CODCC = C.COD WHERE L.CONT = '6812' AND L.DATAINR >= '2006-05-01 00:00:00' AND "
    "L.DATAINR <= '2006-05-31 23:59:59' ORDER BY DATAINR DESC, NDI DESC, NRLINIE LIMIT 64";
const char* const kBareFilteredTotals =
    "SELECT count(*), sum(DEBIT), sum(CREDIT), sum(DEVDEBIT), sum(DEVCREDIT) FROM Kv_Linii WHERE "
    "CONT = '6812' AND DATAINR >= '2006-05-01 00:00:00' AND DATAINR <= '2006-05-31 23:59:59'";

const std::vector<Condition> kAccountAndMonth{
    {"Kv_Linii.CONT", WhereOperator::kEqual, "6812"},
    {"Kv_Linii.DATAINR", WhereOperator::kBetween, "01.05.2006", "31.05.2006"}};

/// A company with its lines, the screen over it, and the bare handle.
class Lines {
 public:
  explicit Lines(int lines) : company_(1) {
    AddLines(company_, lines);
    bare_ = OpenBare(company_.File());
  }
  ~Lines() { sqlite3_close(bare_); }
  Lines(const Lines&) = delete;
  Lines& operator=(const Lines&) = delete;

  std::unique_ptr<frmLinii> Opened() const {
    CurrentSession().connectionString = company_.ConnectionString();
    auto screen = std::make_unique<frmLinii>();
    screen->show();
    benchmark::DoNotOptimize(screen->grab());
    return screen;
  }
  static void Search(frmLinii& screen, const std::vector<Condition>& conditions) {
    screen.WhereBuilder->SetConditions(conditions);
    screen.findChild<QPushButton*>("cmdCauta")->click();
    QCoreApplication::processEvents();
    benchmark::DoNotOptimize(screen.grab());
  }
  sqlite3* Bare() const { return bare_; }
  Connection Open() const { return Connection(company_.ConnectionString()); }

 private:
  GeneratedCompany company_;
  sqlite3* bare_ = nullptr;
};

void Open(benchmark::State& state, const Lines* lines) {
  while (state.KeepRunning()) lines->Opened();
}

void BareOpen(benchmark::State& state, const Lines* lines) {
  while (state.KeepRunning()) {
    for (const char* sql : {kBareRows, kBarePage, kBareTotals}) ReadBareRows(lines->Bare(), sql);
  }
}

void LookAtPage(const Recordset& rows, std::size_t first) {
  for (std::size_t row = first; row < std::min(first + kPage, rows.RecordCount()); ++row) {
    for (std::size_t f = 0; f < rows.FieldCount(); ++f) {
      benchmark::DoNotOptimize(rows.ValueAt(row, f));
    }
  }
}

void Filter(benchmark::State& state, const Lines* lines) {
  Connection connection = lines->Open();
  const std::vector<WhereField> fields = LineFields(connection);
  while (state.KeepRunning()) {
    const WhereClause clause = ClauseOf(fields, kAccountAndMonth);
    const Recordset rows = connection.OpenKeyset(LinesWhere(clause), clause.params,
                                                 {kLineTotals.begin(), kLineTotals.end()});
    LookAtPage(rows, 0);
    for (const char* field : kLineTotals) benchmark::DoNotOptimize(rows.Total(field));
  }
}

void FilterScreen(benchmark::State& state, const Lines* lines) {
  const std::unique_ptr<frmLinii> screen = lines->Opened();
  while (state.KeepRunning()) Lines::Search(*screen, kAccountAndMonth);
}

void BareFilter(benchmark::State& state, const Lines* lines) {
  while (state.KeepRunning()) {
    for (const char* sql : {kBareFilteredRows, kBareFilteredPage, kBareFilteredTotals}) {
      ReadBareRows(lines->Bare(), sql);
    }
  }
}

// Pages from all over the list.
void Scroll(benchmark::State& state, const Lines* lines) {
  constexpr std::size_t kStep = 1000;
  const Recordset rows = lines->Open().OpenKeyset(LinesAtOpening());
  while (state.KeepRunning()) {
    for (std::size_t first = 0; first < rows.RecordCount(); first += kStep * kPage) {
      LookAtPage(rows, first);
    }
  }
}

std::int32_t next_note = kLines / 2;

void Delete(benchmark::State& state, const Lines* lines) {
  Connection connection = lines->Open();
  while (state.KeepRunning()) benchmark::DoNotOptimize(DeleteNote(connection, next_note--));
}

void BareDelete(benchmark::State& state, const Lines* lines) {
  while (state.KeepRunning()) {
    const std::string sql =
        "BEGIN IMMEDIATE; DELETE FROM Kv_Linii WHERE NDI = " + std::to_string(next_note--) +
        "; COMMIT";
    sqlite3_exec(lines->Bare(), sql.c_str(), nullptr, nullptr, nullptr);
  }
}

// The most memory that opening the screen and searching twice take, in KiB.
long PeakOfScreen(int count) {
  const Lines lines(count);
  lines.Opened();  // what is loaded once
  malloc_trim(0);
  const long before = PeakOf([] {});
  const long peak = PeakOf([&] {
    const std::unique_ptr<frmLinii> screen = lines.Opened();
    Lines::Search(*screen, {});
    Lines::Search(*screen, kAccountAndMonth);
  });
  return peak - before;
}

// What each line adds to that, in bytes. Fewer lines fill the buffers, too.
double MemoryOfALine() {
  constexpr int kFew = 50'000;
  constexpr double kKib = 1024;
  const long few = PeakOfScreen(kFew);
  return static_cast<double>(PeakOfScreen(kLines) - few) * kKib / (kLines - kFew);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const double memory = MemoryOfALine();

  const Lines lines(kLines);
  Add("open", Open, &lines);
  Add("open_bare", BareOpen, &lines);
  Add("filter", Filter, &lines);
  Add("filter_screen", FilterScreen, &lines);
  Add("filter_bare", BareFilter, &lines);
  Add("scroll", Scroll, &lines);
  Add("delete", Delete, &lines);
  Add("delete_bare", BareDelete, &lines);
  BestTimes times;
  RunInTurns(argc, argv, times);
  constexpr double kPages = 16;
  std::printf("\nscreen to bare statements:    %.2f (at most 1.30)\n",
              times.Of("open") / times.Of("open_bare"));
  std::printf("filter to bare statements:    %.2f (at most 2.00)\n",
              times.Of("filter") / times.Of("filter_bare"));
  std::printf("the filter on screen, in all: %.0f ms\n", times.Of("filter_screen"));
  std::printf("a page while scrolling:       %.2f ms (at most 2)\n", times.Of("scroll") / kPages);
  std::printf("delete to bare statements:    %.2f (at most 2.00)\n",
              times.Of("delete") / times.Of("delete_bare"));
  std::printf("memory of a line, bytes:      %.1f (at most 16.0)\n", memory);
  return 0;
}
