// SPDX-License-Identifier: Apache-2.0
// How the panel's PPD model does against libcups, the ratios in a table at the end. Exits with 1
// when a goal is missed, with 2 when nothing could be measured.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <cups/cups.h>
#include <cups/ppd.h>

#include "Publishing/ppd/PPDInfo.h"
#include "bench/GeneratedPPD.h"
#include "bench/OpenedPPD.h"
#include "bench/RatioTable.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing::bench {
namespace {

constexpr double kLoadShare = 0.25;
constexpr double kTraysFaster = 100;

void openFile(benchmark::State& state, const std::string& path) {
  for ([[maybe_unused]] auto iteration : state) {
    const double begin = computedSeconds();
    const OpenedPPD ppd(ppdOpenFile(path.c_str()));
    state.SetIterationTime(computedSeconds() - begin);
  }
}

// The load right after the PPD was opened, before the processor has its data at hand.
void loadFirstModel(benchmark::State& state, const std::string& path) {
  for ([[maybe_unused]] auto iteration : state) {
    const OpenedPPD ppd = openPPD(path);
    const double begin = computedSeconds();
    PPDInfo info;
    load(info, ppd.get());
    state.SetIterationTime(computedSeconds() - begin);
  }
}

void askAllTrays(benchmark::State& state, const std::string& path) {
  const OpenedPPD ppd = openPPD(path);
  const std::vector<std::string> trays = traysOf(ppd.get());
  PPDInfo info;
  load(info, ppd.get());
  for ([[maybe_unused]] auto iteration : state) {
    for (const std::string& tray : trays)
      benchmark::DoNotOptimize(info.willAllowChangeOfOption(kInputSlot, tray));
  }
}

void getConflictsOfAllTrays(benchmark::State& state, const std::string& path) {
  const OpenedPPD ppd = openPPD(path);
  const std::vector<std::string> trays = traysOf(ppd.get());
  for ([[maybe_unused]] auto iteration : state) {
    for (const std::string& tray : trays) {
      cups_option_t* options = nullptr;
      const int count = cupsGetConflicts(ppd.get(), kInputSlot, tray.c_str(), &options);
      benchmark::DoNotOptimize(count);
      cupsFreeOptions(count, options);
    }
  }
}

struct Sample {
  std::string name;
  std::string path;
};

// Generated PPDs, written into `folder`. Of smaller ones nobody feels how long they take.
std::vector<Sample> samplesIn(const TemporaryFolder& folder) {
  std::vector<Sample> samples;
  for (const auto& [name, size] : {std::pair("100KB", 100'000UL), std::pair("1MB", 1'000'000UL)}) {
    samples.push_back({name, folder.file(std::string(name) + ".ppd", generatedPPD(size))});
  }
  return samples;
}

std::vector<Comparison> registerComparisons(const std::vector<Sample>& samples) {
  using Goal = Comparison::Goal;
  std::vector<Comparison> comparisons;
  const auto add = [](const std::string& name, auto run, const std::string& path) {
    return benchmark::RegisterBenchmark(name.c_str(), run, path);
  };
  for (const auto& [name, path] : samples) {
    add("ppdOpenFile/" + name, openFile, path)->UseManualTime();
    add("first load/" + name, loadFirstModel, path)->UseManualTime();
    comparisons.push_back(
        {"first load/" + name, "ppdOpenFile/" + name, Goal::kShareAtMost, kLoadShare});
    add("all trays/" + name, askAllTrays, path);
    add("cupsGetConflicts/" + name, getConflictsOfAllTrays, path);
    comparisons.push_back(
        {"all trays/" + name, "cupsGetConflicts/" + name, Goal::kTimesFaster, kTraysFaster});
  }
  return comparisons;
}

bool run(int argc, char** argv) {
  const TemporaryFolder folder;
  return measureAndCompare(argc, argv, registerComparisons(samplesIn(folder)));
}

}  // namespace
}  // namespace publishing::bench

int main(int argc, char** argv) {
  try {
    return publishing::bench::run(argc, argv) ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "publishing-bench: %s\n", error.what());
    return 2;
  }
}
