// A month posted over a full register, against the floor: the same rows read, the same lines
// deleted and written, by bare engine calls.
//
//   bench-notes [--short] [--benchmark_repetitions=N]
//
// Prints, behind the times, posting to floor and, unless the run is short, what memory it takes
// more than a register of a sixteenth.
#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>

#include "accounting/ChargePostings.h"
#include "bench/BestTimes.h"
#include "bench/GeneratedCompany.h"
#include "bench/PeakMemory.h"
#include "bench/PostingFloor.h"
#include "engine/Module3.h"
#include "session/Session.h"

namespace {

using namespace tevra;
using namespace tevra::bench;

const DateTime kMonth(2026, 10, 31);

// The month's lines are there already, as when a month is calculated again.
void Prepare(const GeneratedCompany& company) {
  Connection connection(company.ConnectionString());
  RunMonth(connection, kMonth);
  CurrentSession().connectionString = company.ConnectionString();
  CurrentSession().userName = "admin";
  PostCharges(connection, kMonth);
}

void Posting(benchmark::State& state, const GeneratedCompany* company) {
  CurrentSession().connectionString = company->ConnectionString();
  while (state.KeepRunning()) {
    Connection connection(company->ConnectionString());
    benchmark::DoNotOptimize(PostCharges(connection, kMonth));
  }
}

void Floor(benchmark::State& state, const GeneratedCompany* company) {
  while (state.KeepRunning()) benchmark::DoNotOptimize(RunPostingFloor(company->File(), kMonth));
}

long PeakOfPosting(const GeneratedCompany& company) {
  Connection connection(company.ConnectionString());
  return PeakOf([&] { PostCharges(connection, kMonth); });
}

void PrintGrowth(const GeneratedCompany& company) {
  constexpr int kSmall = 2047;
  const GeneratedCompany small(kSmall);
  Prepare(small);
  PeakOfPosting(company);
  const long before = PeakOfPosting(small);
  const long growth = PeakOfPosting(company) - before;
  std::printf("memory, 32767 against 2047:      %ld KiB more\n", growth);
}

}  // namespace

int main(int argc, char** argv) {
  const bool isShort = IsShort(argc, argv);
  const int rows = RowsOf(isShort);
  const GeneratedCompany company(rows);
  const GeneratedCompany copy(rows);
  for (const GeneratedCompany* each : {&company, &copy}) Prepare(*each);
  const auto add = [](const char* name, auto function, const GeneratedCompany& over) {
    benchmark::RegisterBenchmark(name, function, &over)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1);
  };
  add("posting", Posting, company);
  add("floor", Floor, copy);
  BestTimes times;
  RunInTurns(argc, argv, times);
  std::printf("\nposting to floor, %d assets:  %.2f (at most 1.35)\n", rows,
              times.Of("posting") / times.Of("floor"));
  if (!isShort) PrintGrowth(company);
  return 0;
}
