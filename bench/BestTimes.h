// Benchmarks that are held against each other: repeated in turns, compared by their best times.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace tevra::bench {

/// Prints as usual and keeps the least processor time of all repetitions by name: other programs on
/// the machine can only make a repetition longer.
class BestTimes : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const double time = run.GetAdjustedCPUTime();
      const auto [best, first] = times_.emplace(run.run_name.function_name, time);
      if (!first) best->second = std::min(best->second, time);
    }
    ConsoleReporter::ReportRuns(runs);
  }

  /// In the unit of the benchmark.
  double Of(const std::string& name) const {
    const auto found = times_.find(name);
    return found == times_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> times_;
};

/// Registers a benchmark of `function` over `subject`, in milliseconds, three runs a repetition.
template <typename Function, typename Subject>
void Add(const char* name, Function function, Subject* subject) {
  benchmark::RegisterBenchmark(name, function, subject)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(3);
}

/// Runs what is registered, eleven times in turns unless the command line says otherwise.
inline void RunInTurns(int argc, char** argv, BestTimes& times) {
  std::vector<char*> arguments(argv, argv + argc);
  char repetitions[] = "--benchmark_repetitions=11";
  char interleaving[] = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, {repetitions, interleaving});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  benchmark::RunSpecifiedBenchmarks(&times);
}

}  // namespace tevra::bench
