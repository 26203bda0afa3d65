// The monthly run over a full register against the floor, and against a register of a sixteenth.
//
//   bench-month [--benchmark_repetitions=N]
//
// Prints, behind the times, the figures that count: run to floor with the table's checks on and off
// on both sides, 32,752 assets to 2,047, and what memory grew from the small register to the large
// one.
#include <cstdio>
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

}  // namespace

int main(int argc, char** argv) {
  constexpr int kSmall = 2047;
  constexpr int kSixteenfold = 16 * kSmall;
  constexpr int kFull = 32767;
  const GeneratedCompany small(kSmall);
  const GeneratedCompany large(kSixteenfold);
  const GeneratedCompany full(kFull);
  const GeneratedCompany copy(kFull);
  const GeneratedCompany unchecked(kFull);
  const GeneratedCompany uncheckedCopy(kFull);
  PeakOfRun(full);
  const long before = PeakOfRun(small);
  const long growth = PeakOfRun(full) - before;

  const auto add = [](const char* name, auto function, Side& side) {
    benchmark::RegisterBenchmark(name, function, &side)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
  };
  Side sides[] = {
      {&small}, {&large}, {&full}, {&copy}, {&unchecked, false}, {&uncheckedCopy, false}};
  add("run/2047", Run, sides[0]);
  add("run/32752", Run, sides[1]);
  add("run/32767", Run, sides[2]);
  add("floor/32767", Floor, sides[3]);
  add("run_without_checks/32767", Run, sides[4]);
  add("floor_without_checks/32767", Floor, sides[5]);
  BestTimes times;
  RunInTurns(argc, argv, times);

  std::printf("\nrun to floor, 32767 assets:     %.2f (at most 1.15)\n",
              times.Of("run/32767") / times.Of("floor/32767"));
  std::printf("the same without any checks:    %.2f (at most 1.2)\n",
              times.Of("run_without_checks/32767") / times.Of("floor_without_checks/32767"));
  std::printf("32752 assets to 2047:           %.1f (at most 17)\n",
              times.Of("run/32752") / times.Of("run/2047"));
  std::printf("memory, 32767 against 2047:     %ld KiB more\n", growth);
  return 0;
}
