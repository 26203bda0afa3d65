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
#include "bench/GeneratedLines.h"
#include "bench/PeakMemory.h"
#include "exchange/ExchangeHeader.h"
#include "exchange/ExportFile.h"
#include "exchange/ImportFile.h"
#include "session/Session.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

namespace fs = std::filesystem;

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
  const int lines = isShort ? RowsOf(true) : 200'000;
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
