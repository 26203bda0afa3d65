// A month's notes written through the note builder, against the same lines through one prepared
// statement of the engine.
//
//   bench-notes [--benchmark_repetitions=N]
//
// Prints, behind the times, builder to bare inserts (at most 1.5).
#include <cstdio>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "accounting/cBLLNoteContabile.h"
#include "bench/GeneratedCompany.h"
#include "bench/Medians.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

constexpr int kNotes = 32767;

void Builder(benchmark::State& state, const GeneratedCompany* company) {
  Connection connection(company->ConnectionString());
  while (state.KeepRunning()) {
    state.PauseTiming();
    connection.Execute("DELETE * FROM Kv_Linii");
    state.ResumeTiming();
    Transaction transaction(connection);
    cBLLNoteContabile note;
    note.Jurnal = "OD";
    note.DataInr = DateTime(2026, 10, 31);
    note.Prov = "I";
    note.CodSucursala = "01";
    note.Utilizator = "admin";
    note.Cantit = 1;
    note.Doc = note.Marca = "IMO10.2026";
    for (int i = 0; i < kNotes; ++i) {
      note.Cont = "6811";
      note.Debit = 100.5 + i;
      note.SetCredit("0");
      note.AddNota(connection, false);
      note.Cont = "2813";
      note.SetCredit("100,5");
      note.Debit = 0;
      note.AddNota(connection, true);
    }
    transaction.Commit();
  }
}

class BareLines {
 public:
  explicit BareLines(const GeneratedCompany& company) {
    sqlite3_open(company.File().c_str(), &db_);
    Run("PRAGMA synchronous=FULL");
  }
  ~BareLines() { sqlite3_close(db_); }

  static void Bind(sqlite3_stmt* insert, int column, const char* text) {
    sqlite3_bind_text(insert, column, text, -1, SQLITE_TRANSIENT);
  }

  void Run(const char* sql) { sqlite3_exec(db_, sql, nullptr, nullptr, nullptr); }

  void Write() {
    Run("BEGIN IMMEDIATE");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db_,
                       "INSERT INTO Kv_Linii VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,"
                       "?,?,?,?,?,?,?,?)",
                       -1, &insert, nullptr);
    for (int i = 0; i < 2 * kNotes; ++i) {
      const bool debit = i % 2 == 0;
      const char* const texts[] = {"OD", "2026-10-31 00:00:00", debit ? "6811" : "2813"};
      const char* const documents[] = {"IMO10.2026", "IMO10.2026", "", "", "LEI"};
      const double amounts[] = {0, 0, 0, 1};
      const char* const ends[] = {"I", "",  "2026-11-30 00:00:00", "admin", "2026-11-23 10:00:00",
                                  "",  "01"};
      int column = 0;
      sqlite3_bind_int(insert, ++column, i / 2 + 1);
      sqlite3_bind_int(insert, ++column, i % 2 + 1);
      for (const char* text : texts) Bind(insert, ++column, text);
      sqlite3_bind_double(insert, ++column, debit ? 100.5 + i : 0);
      sqlite3_bind_double(insert, ++column, debit ? 0 : 100.5);
      for (const char* text : documents) Bind(insert, ++column, text);
      for (const double amount : amounts) sqlite3_bind_double(insert, ++column, amount);
      sqlite3_bind_null(insert, ++column);
      for (int number = 0; number < 3; ++number) sqlite3_bind_int(insert, ++column, 0);
      for (const char* text : ends) Bind(insert, ++column, text);
      sqlite3_bind_int(insert, ++column, 0);
      for (int text = 0; text < 3; ++text) Bind(insert, ++column, "");
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    Run("COMMIT");
  }

 private:
  sqlite3* db_ = nullptr;
};

void Bare(benchmark::State& state, const GeneratedCompany* company) {
  BareLines lines(*company);
  while (state.KeepRunning()) {
    state.PauseTiming();
    lines.Run("DELETE FROM Kv_Linii");
    state.ResumeTiming();
    lines.Write();
  }
}

}  // namespace

int main(int argc, char** argv) {
  const GeneratedCompany company(10);
  const GeneratedCompany copy(10);
  const auto add = [](const char* name, auto function, const GeneratedCompany& over) {
    benchmark::RegisterBenchmark(name, function, &over)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
  };
  add("builder/65534", Builder, company);
  add("bare/65534", Bare, copy);
  Medians medians;
  RunInTurns(argc, argv, medians);
  std::printf("\nbuilder to bare inserts:  %.2f (at most 1.5)\n",
              medians.Of("builder/65534") / medians.Of("bare/65534"));
  return 0;
}
