// SPDX-License-Identifier: Apache-2.0
// How the PPD model grows with a PPD: one line of comma-separated values for each power of ten from
// 10^2 to 10^5 constraints, in generated files. Times are medians of the time that the thread
// computed. Exits with 1 when the load grows faster than the PPD, with 2 when nothing could be
// measured. bench/run draws a picture of it.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "Publishing/ppd/PPDInfo.h"
#include "bench/GeneratedPPD.h"
#include "bench/OpenedPPD.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing::bench {
namespace {

constexpr int kSmallest = 100;
constexpr int kLargest = 100'000;
// Of the time to load over the last two powers of ten. One is linear; a look-up takes longer in a
// larger table, and what is beyond the processor's cache takes longer to reach.
constexpr double kSteepest = 1.25;

struct Point {
  double openSeconds;  // by libcups
  double loadSeconds;
  double askSeconds;  // for one tray
  std::size_t heldBytes;
};

// The median of as many rounds as fit into a moment, at least three.
double medianSeconds(const std::function<double()>& round) {
  std::vector<double> seconds;
  for (double sum = 0; seconds.size() < 3 || (sum < 0.3 && seconds.size() < 99);) {
    seconds.push_back(round());
    sum += seconds.back();
  }
  const auto middle = seconds.begin() + std::ssize(seconds) / 2;
  std::nth_element(seconds.begin(), middle, seconds.end());
  return *middle;
}

double timed(const std::function<void()>& work) {
  const double begin = computedSeconds();
  work();
  return computedSeconds() - begin;
}

double askSeconds(const PPDInfo& info, const std::vector<std::string>& trays) {
  constexpr int kAsked = 100'000;  // long enough for the clock
  const double all = medianSeconds([&] {
    return timed([&] {
      for (std::size_t asked = 0; asked < kAsked; ++asked) {
        benchmark::DoNotOptimize(
            info.willAllowChangeOfOption(kInputSlot, trays[asked % trays.size()]));
      }
    });
  });
  return all / kAsked;
}

// All but the time to open the file.
Point measureModel(ppd_file_t* ppd) {
  Point point{};
  point.loadSeconds = medianSeconds([ppd] {
    PPDInfo info;
    return timed([&] { load(info, ppd); });
  });
  const struct mallinfo2 before = mallinfo2();
  PPDInfo info;
  load(info, ppd);
  const struct mallinfo2 after = mallinfo2();
  point.heldBytes = after.uordblks + after.hblkhd - before.uordblks - before.hblkhd;
  point.askSeconds = askSeconds(info, traysOf(ppd));
  return point;
}

Point measureConstraints(int count) {
  const TemporaryFolder folder;
  const std::string path = folder.file("constraints.ppd", ppdWithConstraints(count));
  Point point = measureModel(openPPD(path).get());
  point.openSeconds = medianSeconds(
      [&path] { return timed([&path] { const OpenedPPD ppd(ppdOpenFile(path.c_str())); }); });
  return point;
}

// Whether the load grows no faster than the PPD.
bool run() {
  std::puts("constraints,ppdOpenFile seconds,model load seconds,tray asked seconds,model bytes");
  double earlier = 0;
  double last = 0;
  for (int count = kSmallest; count <= kLargest; count *= 10) {
    const Point point = measureConstraints(count);
    std::printf("%d,%.9f,%.9f,%.9f,%zu\n", count, point.openSeconds, point.loadSeconds,
                point.askSeconds, point.heldBytes);
    std::fflush(stdout);
    if (count == kLargest / 100) earlier = point.loadSeconds;
    last = point.loadSeconds;
  }
  const double exponent = std::log10(last / earlier) / 2;
  std::fprintf(stderr, "the load grows with the power %.2f of the constraints, at most %.2f: %s\n",
               exponent, kSteepest, exponent <= kSteepest ? "met" : "MISSED");
  return exponent <= kSteepest;
}

}  // namespace
}  // namespace publishing::bench

int main() {
  try {
    return publishing::bench::run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "growth-bench: %s\n", error.what());
    return 2;
  }
}
