// Benchmarks that are held against each other: repeated in turns, compared by their medians.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace tevra::bench {

/// Prints as usual and keeps the processor times of every repetition by name: other programs on the
/// machine disturb them least.
class Medians : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      times_[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
    }
    ConsoleReporter::ReportRuns(runs);
  }

  /// In the unit of the benchmark.
  double Of(const std::string& name) {
    auto& times = times_[name];
    if (times.empty()) return 0;
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
  }

 private:
  std::map<std::string, std::vector<double>> times_;
};

/// Runs what is registered, eleven times in turns unless the command line says otherwise.
inline void RunInTurns(int argc, char** argv, Medians& medians) {
  std::vector<char*> arguments(argv, argv + argc);
  char repetitions[] = "--benchmark_repetitions=11";
  char interleaving[] = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, {repetitions, interleaving});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  benchmark::RunSpecifiedBenchmarks(&medians);
}

}  // namespace tevra::bench
