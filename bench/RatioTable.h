// SPDX-License-Identifier: Apache-2.0
// Collects the medians of benchmarks and sets them against each other.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace publishing::bench {

// What is wanted of `ours` against `peer`, both names of benchmarks.
struct Comparison {
  std::string ours;
  std::string peer;
  enum class Goal { kShareAtMost, kTimesFaster } goal;
  double wanted;  // a share of the peer's time, 0 to 1, or how many times faster
};

// Writes results to the console as they come and keeps the medians.
class MedianReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  // The median in nanoseconds; 0 for a benchmark that did not run.
  [[nodiscard]] double median(const std::string& benchmark) const;

 private:
  std::map<std::string, double> medians_;
};

// Writes one line a comparison: names, medians, ratio, goal. False when a goal was missed;
// comparisons of benchmarks that did not run are left out.
bool printRatios(const std::vector<Comparison>& comparisons, const MedianReporter& medians);

// Runs the registered benchmarks, as interleaved repetitions: a busy moment of the machine hits
// ours and peers alike. Writes their medians and then printRatios, whose answer it returns. Takes
// Google Benchmark's options from the command line; throws std::invalid_argument for others.
bool measureAndCompare(int argc, char** argv, const std::vector<Comparison>& comparisons);

}  // namespace publishing::bench
