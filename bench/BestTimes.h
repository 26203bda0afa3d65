// Benchmarks that are held against each other: repeated in turns, compared by their best times.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
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

/// True when the command line has `--short`: a bench then measures its ratios alone, over fewer
/// rows, in about a second. `tools/bench-gate` runs them so.
inline bool IsShort(int argc, char** argv) {
  return std::any_of(argv, argv + argc,
                     [](const char* argument) { return std::string_view(argument) == "--short"; });
}

/// The rows over which a bench runs.
inline int RowsOf(bool isShort) {
  return isShort ? 8'000 : 32'767;
}

/// Registers a benchmark of `function` over `subject`, in milliseconds, three runs a repetition.
template <typename Function, typename Subject>
void Add(const char* name, Function function, Subject* subject) {
  benchmark::RegisterBenchmark(name, function, subject)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(3);
}

/// Runs what is registered in turns: eleven times, or five when the run is short, unless the
/// command line says otherwise.
inline void RunInTurns(int argc, char** argv, BestTimes& times) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string repetitions = "--benchmark_repetitions=";
  repetitions += IsShort(argc, argv) ? "5" : "11";
  char interleaving[] = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, {repetitions.data(), interleaving});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  benchmark::RunSpecifiedBenchmarks(&times);
}

}  // namespace tevra::bench
