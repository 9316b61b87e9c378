// SPDX-License-Identifier: Apache-2.0
#include "bench/RatioTable.h"

#include <cstdio>
#include <stdexcept>

namespace publishing::bench {

void MedianReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    if (run.aggregate_name == "median") {
      // Manual times are computing times already.
      const bool manual = run.run_name.time_type == "manual_time";
      const double time = manual ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
      const double scale = benchmark::GetTimeUnitMultiplier(run.time_unit);
      medians_[run.run_name.function_name] = time / scale * 1e9;
    }
  }
}

double MedianReporter::median(const std::string& benchmark) const {
  const auto found = medians_.find(benchmark);
  return found != medians_.end() ? found->second : 0;
}

bool printRatios(const std::vector<Comparison>& comparisons, const MedianReporter& medians) {
  std::printf("\n%-24s %10s   %-28s %10s   %10s   %s\n", "ours", "median ns", "peer", "median ns",
              "ratio", "goal");
  bool met = true;
  for (const auto& [ours, peer, goal, wanted] : comparisons) {
    const double our = medians.median(ours);
    const double their = medians.median(peer);
    if (our <= 0 || their <= 0) continue;
    const bool share = goal == Comparison::Goal::kShareAtMost;
    const double ratio = share ? our / their * 100 : their / our;
    const double limit = share ? wanted * 100 : wanted;
    const char* unit = share ? "%" : "x";
    std::printf("%-24s %10.1f   %-28s %10.1f   %8.2f %s   ", ours.c_str(), our, peer.c_str(), their,
                ratio, unit);
    const bool good = share ? ratio <= limit : ratio >= limit;
    met = met && good;
    std::printf("%s %g %s: %s\n", share ? "at most" : "at least", limit, unit,
                good ? "met" : "MISSED");
  }
  return met;
}

bool measureAndCompare(int argc, char** argv, const std::vector<Comparison>& comparisons) {
  std::string repetitions = "--benchmark_repetitions=9";
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  std::string aggregates = "--benchmark_report_aggregates_only=true";
  std::string minimum = "--benchmark_min_time=0.02";
  std::vector<char*> arguments = {argv[0], repetitions.data(), interleaving.data(),
                                  aggregates.data(), minimum.data()};
  arguments.insert(arguments.end(), argv + 1, argv + argc);
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
    throw std::invalid_argument("wrong command line");
  }
  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return printRatios(comparisons, reporter);
}

}  // namespace publishing::bench
