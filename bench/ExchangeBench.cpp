// The lines of a branch exported and imported, against bare calls around the same lines.
//
//   bench-exchange [--short] [--benchmark_repetitions=N]
//
// Prints, behind the times, each to its floor and, unless the run is short, the memory that a
// million lines take.
#include <cstdio>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/BareRows.h"
#include "bench/BestTimes.h"
#include "bench/ExchangeFloor.h"
#include "bench/GeneratedCompany.h"
#include "bench/PeakMemory.h"
#include "exchange/ExchangeHeader.h"
#include "exchange/ExportFile.h"
#include "exchange/ImportFile.h"
#include "session/Session.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

namespace fs = std::filesystem;

// Notes of two lines, all days of a year, the suppliers of the generated company. In the engine's
// own dialect, where the quotient of whole numbers is whole.
void AddLines(const GeneratedCompany& company, int lines) {
  sqlite3* db = OpenBare(company.File().string());
  const std::string sql =
      "WITH RECURSIVE N(I) AS (SELECT 0 UNION ALL SELECT I + 1 FROM N WHERE I < " +
      std::to_string(lines - 1) +
      ") INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, DOC, MARCA, "
      "CODBUG, COD, CURS, DEVDEBIT, DEVCREDIT, CANTIT, TERT, PROV, DATASCAD, UTILIZATOR, TIMP, "
      "ID_Formula, DocExplicatie, EXPL) SELECT I / 2 + 1, I % 2 + 1, 'OD', "
      "datetime('2006-01-01', (I / 2 % 365) || ' days'), iif(I % 2, '2813', '6811'), "
      "iif(I % 2, 0, I / 2 % 99991 / 100.0), iif(I % 2, I / 2 % 99991 / 100.0, 0), "
      "'IMO' || printf('%02d', I % 12 + 1), 'IMO' || I % 997, 'CC' || (I % 400 + 1), 'LEI', 0, 0, "
      "0, 1, I % 500 + 1, 'I', '2006-12-31 00:00:00', 'admin', '2006-12-31 10:20:30', 0, "
      "'Factura ' || I % 9973, 'Amortizare imobilizari' FROM N";
  const int code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
  sqlite3_close(db);
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
}

/// A branch with its file, and a centre without lines.
class Pair {
 public:
  explicit Pair(int lines) : branch_(1), centre_(1) {
    AddLines(branch_, lines);
    fresh_ = centre_.File().parent_path() / "fresh";
    fs::copy_file(centre_.File(), fresh_);
    file_ = ExportedFile();
    header_ = GetXMLHeader(LoadExchange(file_), file_);
    header_.code = "S1";
  }

  void Export() const { ExportedFile(); }
  std::string ExportedFile() const {
    Session& session = CurrentSession();
    session.connectionString = branch_.ConnectionString();
    session.databasesPath = branch_.File().parent_path().string() + "/";
    Connection branch(branch_.ConnectionString());
    ExportRequest request;
    request.from = DateTime(2006, 1, 1);
    request.to = DateTime(2006, 12, 31);
    request.again = true;
    return GenerateXML(branch, request).file.string();
  }
  void Import() const {
    Connection centre(centre_.ConnectionString());
    ImportRequest request;
    request.load.file = file_;
    request.load.header = header_;
    if (ImportFile(centre, request).result != Imported::Result::kDone) {
      throw std::runtime_error("the import failed");
    }
  }
  void ExportBare() const { RunExportFloor(branch_.File(), fresh_.string() + ".xml"); }
  void ImportBare() const { RunImportFloor(branch_.File(), centre_.File()); }
  void EmptyCentre() const {
    fs::copy_file(fresh_, centre_.File(), fs::copy_options::overwrite_existing);
  }

 private:
  GeneratedCompany branch_;
  GeneratedCompany centre_;
  fs::path fresh_;
  std::string file_;
  ExchangeHeader header_;
};

void Add(const char* name, const Pair& pair, void (Pair::*work)() const) {
  benchmark::RegisterBenchmark(name,
                               [&pair, work](benchmark::State& state) {
                                 while (state.KeepRunning()) {
                                   state.PauseTiming();
                                   pair.EmptyCentre();
                                   state.ResumeTiming();
                                   (pair.*work)();
                                 }
                               })
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1);
}

void PrintMemory() {
  constexpr double kKibInMib = 1024;
  const Pair million(1'000'000);
  const long exported = PeakOf([&] { million.Export(); });
  const long imported = PeakOf([&] { million.Import(); });
  std::printf("export, MiB for 1000000 lines:  %.1f (at most 64.00)\n",
              static_cast<double>(exported) / kKibInMib);
  std::printf("import, MiB for 1000000 lines:  %.1f (at most 64.00)\n",
              static_cast<double>(imported) / kKibInMib);
}

}  // namespace

int main(int argc, char** argv) {
  const bool isShort = IsShort(argc, argv);
  if (!isShort) PrintMemory();
  const int lines = isShort ? 2 * RowsOf(true) : 200'000;
  const Pair pair(lines);
  Add("export", pair, &Pair::Export);
  Add("export_floor", pair, &Pair::ExportBare);
  Add("import", pair, &Pair::Import);
  Add("import_floor", pair, &Pair::ImportBare);
  BestTimes times;
  RunInTurns(argc, argv, times);
  std::printf("\nexport to floor, %d lines:  %.2f (at most 1.50)\n", lines,
              times.Of("export") / times.Of("export_floor"));
  std::printf("import to floor, %d lines:  %.2f (at most 2.00)\n", lines,
              times.Of("import") / times.Of("import_floor"));
  return 0;
}
