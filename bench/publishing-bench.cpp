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
#include <malloc.h>

#include "Publishing/ppd/PPDFields.h"
#include "Publishing/ppd/PPDInfo.h"
#include "bench/GeneratedPPD.h"
#include "bench/OpenedPPD.h"
#include "bench/RatioTable.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing::bench {
namespace {

constexpr double kLoadShare = 0.03;
constexpr double kTraysFaster = 100;
constexpr double kBytesAKeywordByte = 2;

void openFile(benchmark::State& state, const std::string& path) {
  for ([[maybe_unused]] auto iteration : state) {
    const double begin = computedSeconds();
    const OpenedPPD ppd(ppdOpenFile(path.c_str()));
    state.SetIterationTime(computedSeconds() - begin);
  }
}

void loadModel(benchmark::State& state, const std::string& path) {
  const OpenedPPD ppd = openPPD(path);
  for ([[maybe_unused]] auto iteration : state) {
    PPDInfo info;
    load(info, ppd.get());
    benchmark::DoNotOptimize(info);
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

// Bytes of the keywords that the model of this PPD holds: options, choices, and both sides of the
// constraints on the trays.
std::size_t keywordBytes(ppd_file_t* ppd) {
  std::size_t bytes = 0;
  for (ppd_option_t* option = ppdFirstOption(ppd); option != nullptr; option = ppdNextOption(ppd)) {
    bytes += boundedView(option->keyword).size();
    for (const ppd_choice_t& choice : choicesOf(option))
      bytes += boundedView(choice.choice).size();
  }
  for (int index = 0; index < ppd->num_consts; ++index) {
    const ppd_const_t& constraint = ppd->consts[index];
    const std::string_view option1 = boundedView(constraint.option1);
    const std::string_view option2 = boundedView(constraint.option2);
    if (option1 != kInputSlot && option2 != kInputSlot) continue;
    bytes += option1.size() + boundedView(constraint.choice1).size() + option2.size() +
             boundedView(constraint.choice2).size();
  }
  return bytes;
}

bool printMemory(const std::string& name, const std::string& path) {
  const OpenedPPD ppd = openPPD(path);
  const std::size_t before = mallinfo2().uordblks;
  PPDInfo info;
  load(info, ppd.get());
  const std::size_t held = mallinfo2().uordblks - before;
  const std::size_t keywords = keywordBytes(ppd.get());
  const double ratio = static_cast<double>(held) / static_cast<double>(keywords);
  std::printf("memory/%-20s %8zu bytes held, %8zu bytes of keywords   %8.2f x  at most %g x\n",
              name.c_str(), held, keywords, ratio, kBytesAKeywordByte);
  return ratio <= kBytesAKeywordByte;
}

struct Sample {
  std::string name;
  std::string path;
  bool large;
};

// The sample PPD of the project and generated ones, written into `folder`.
std::vector<Sample> samplesIn(const TemporaryFolder& folder) {
  std::vector<Sample> samples = {{"sample", SAMPLE_PPD, false}};
  for (const auto& [name, size] : {std::pair("100KB", 100'000UL), std::pair("1MB", 1'000'000UL)}) {
    samples.push_back({name, folder.file(std::string(name) + ".ppd", generatedPPD(size)), true});
  }
  return samples;
}

std::vector<Comparison> registerComparisons(const std::vector<Sample>& samples) {
  using Goal = Comparison::Goal;
  std::vector<Comparison> comparisons;
  const auto add = [](const std::string& name, auto run, const std::string& path) {
    return benchmark::RegisterBenchmark(name.c_str(), run, path);
  };
  for (const auto& [name, path, large] : samples) {
    add("ppdOpenFile/" + name, openFile, path)->UseManualTime();
    add("model load/" + name, loadModel, path);
    add("first load/" + name, loadFirstModel, path)->UseManualTime();
    add("all trays/" + name, askAllTrays, path);
    add("cupsGetConflicts/" + name, getConflictsOfAllTrays, path);
    for (const char* load : {"model load/", "first load/"}) {
      comparisons.push_back(
          {load + name, "ppdOpenFile/" + name, Goal::kShareAtMost, large ? kLoadShare : kNoGoal});
    }
    comparisons.push_back(
        {"all trays/" + name, "cupsGetConflicts/" + name, Goal::kTimesFaster, kTraysFaster});
  }
  return comparisons;
}

bool run(int argc, char** argv) {
  const TemporaryFolder folder;
  const std::vector<Sample> samples = samplesIn(folder);
  bool met = measureAndCompare(argc, argv, registerComparisons(samples));
  for (const auto& [name, path, large] : samples)
    met = printMemory(name, path) && met;
  return met;
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
