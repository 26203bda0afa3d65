// The monthly run over a full register against the floor, and against a register of a sixteenth.
//
//   bench-month [--benchmark_repetitions=N]
//
// Prints, behind the times, the three figures that count: run to floor (at most 1.25), 32,752
// assets to 2,047 (at most 17), and what memory grew from the small register to the large one.
#include <cstdio>
#include <fstream>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/GeneratedCompany.h"
#include "bench/Medians.h"
#include "bench/MonthFloor.h"
#include "engine/Module3.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

// Every iteration is another month, so that every row changes as it does in use.
DateTime NextMonth() {
  static int month = 0;
  return DateTime(2015, 1, 31).AddMonths(month++ % 120);
}

void Run(benchmark::State& state, const GeneratedCompany* company) {
  while (state.KeepRunning()) {
    Connection connection(company->ConnectionString());
    benchmark::DoNotOptimize(RunMonth(connection, NextMonth()));
  }
}

void Floor(benchmark::State& state, const GeneratedCompany* company) {
  while (state.KeepRunning()) benchmark::DoNotOptimize(RunFloor(company->File(), NextMonth()));
}

// The most memory that a run has in use at once, counted anew from its start.
long PeakOfRun(const GeneratedCompany& company) {
  Connection connection(company.ConnectionString());
  std::ofstream("/proc/self/clear_refs") << "5";
  RunMonth(connection, NextMonth());
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == "VmHWM:") break;
  }
  long kilobytes = 0;
  status >> kilobytes;
  return kilobytes;
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
  PeakOfRun(full);
  const long before = PeakOfRun(small);
  const long growth = PeakOfRun(full) - before;

  const auto add = [](const char* name, auto function, const GeneratedCompany& company) {
    benchmark::RegisterBenchmark(name, function, &company)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
  };
  add("run/2047", Run, small);
  add("run/32752", Run, large);
  add("run/32767", Run, full);
  add("floor/32767", Floor, copy);
  Medians medians;
  RunInTurns(argc, argv, medians);

  std::printf("\nrun to floor, 32767 assets:  %.2f (at most 1.25)\n",
              medians.Of("run/32767") / medians.Of("floor/32767"));
  std::printf("32752 assets to 2047:        %.1f (at most 17)\n",
              medians.Of("run/32752") / medians.Of("run/2047"));
  std::printf("memory, 32767 against 2047:  %ld KiB more\n", growth);
  return 0;
}
