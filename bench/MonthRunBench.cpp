// The monthly run over a full register against the floor, and against a register of a sixteenth.
//
//   bench-month [--short] [--benchmark_repetitions=N]
//
// Prints, behind the times, the figures that count: run to floor with the table's checks; unless
// the run is short, also without checks on both sides, 32,752 assets to 2,047, and what memory grew
// from the small register to the large one.
#include <cstdio>
#include <optional>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/BestTimes.h"
#include "bench/GeneratedCompany.h"
#include "bench/MonthFloor.h"
#include "bench/PeakMemory.h"
#include "engine/Module3.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

// A company and the months that it has seen: each run is of the next one, so that rows change as
// they do in use, and all sides of a comparison see the same months.
struct Side {
  const GeneratedCompany* company;
  bool checks = true;
  int month = 0;

  DateTime NextMonth() { return DateTime(2015, 1, 31).AddMonths(month++ % 120); }
};

void Run(benchmark::State& state, Side* side) {
  while (state.KeepRunning()) {
    Connection connection(side->company->ConnectionString());
    if (!side->checks) connection.Execute("PRAGMA ignore_check_constraints=ON");
    benchmark::DoNotOptimize(RunMonth(connection, side->NextMonth()));
  }
}

void Floor(benchmark::State& state, Side* side) {
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(RunFloor(side->company->File(), side->NextMonth(), side->checks));
  }
}

long PeakOfRun(const GeneratedCompany& company) {
  static int month = 0;
  Connection connection(company.ConnectionString());
  return PeakOf([&] { RunMonth(connection, DateTime(2014, 1, 31).AddMonths(month++)); });
}

void Add(const char* name, void (*function)(benchmark::State&, Side*), Side& side) {
  benchmark::RegisterBenchmark(name, function, &side)->Unit(benchmark::kMillisecond)->Iterations(1);
}

// The sides that only a whole run measures.
class WholeRun {
 public:
  explicit WholeRun(const GeneratedCompany& full) {
    PeakOfRun(full);
    const long before = PeakOfRun(small_);
    growth_ = PeakOfRun(full) - before;
    Add("run/2047", Run, sides_[0]);
    Add("run/32752", Run, sides_[1]);
    Add("run_without_checks", Run, sides_[2]);
    Add("floor_without_checks", Floor, sides_[3]);
  }

  void Print(const BestTimes& times) const {
    std::printf("the same without any checks:    %.2f (at most 1.2)\n",
                times.Of("run_without_checks") / times.Of("floor_without_checks"));
    std::printf("32752 assets to 2047:           %.1f (at most 17)\n",
                times.Of("run/32752") / times.Of("run/2047"));
    std::printf("memory, 32767 against 2047:     %ld KiB more\n", growth_);
  }

 private:
  static constexpr int kSmall = 2047;
  GeneratedCompany small_{kSmall};
  GeneratedCompany sixteenfold_{16 * kSmall};
  GeneratedCompany unchecked_{RowsOf(false)};
  GeneratedCompany uncheckedCopy_{RowsOf(false)};
  long growth_ = 0;
  Side sides_[4] = {{&small_}, {&sixteenfold_}, {&unchecked_, false}, {&uncheckedCopy_, false}};
};

}  // namespace

int main(int argc, char** argv) {
  const bool isShort = IsShort(argc, argv);
  const int rows = RowsOf(isShort);
  const GeneratedCompany company(rows);
  const GeneratedCompany copy(rows);
  std::optional<WholeRun> whole;
  if (!isShort) whole.emplace(company);
  Side program{&company};
  Side bare{&copy};
  Add("run", Run, program);
  Add("floor", Floor, bare);
  BestTimes times;
  RunInTurns(argc, argv, times);

  std::printf("\nrun to floor, %d assets:     %.2f (at most 1.15)\n", rows,
              times.Of("run") / times.Of("floor"));
  if (whole) whole->Print(times);
  return 0;
}
