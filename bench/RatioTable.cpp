#include "bench/RatioTable.h"

#include <cstdio>

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
  std::printf("\n%-24s %10s   %-24s %10s   %10s   %s\n", "ours", "median us", "peer", "median us",
              "ratio", "goal");
  bool met = true;
  for (const auto& [ours, peer, goal, wanted] : comparisons) {
    const double our = medians.median(ours) / 1e3;
    const double their = medians.median(peer) / 1e3;
    if (our <= 0 || their <= 0) continue;
    const bool share = goal == Comparison::Goal::kShareAtMost;
    const double ratio = share ? our / their * 100 : their / our;
    const double limit = share ? wanted * 100 : wanted;
    const char* unit = share ? "%" : "x";
    std::printf("%-24s %10.2f   %-24s %10.2f   %8.2f %s   ", ours.c_str(), our, peer.c_str(), their,
                ratio, unit);
    if (wanted == kNoGoal) {
      std::printf("-\n");
      continue;
    }
    const bool good = share ? ratio <= limit : ratio >= limit;
    met = met && good;
    std::printf("%s %g %s: %s\n", share ? "at most" : "at least", limit, unit,
                good ? "met" : "MISSED");
  }
  return met;
}

}  // namespace publishing::bench
