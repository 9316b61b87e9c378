// How the panel's PPD model does against libcups, the ratios in a table at the end. Exits with 1
// when a goal is missed.
#include <cstdio>
#include <ctime>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <cups/cups.h>
#include <cups/ppd.h>
#include <malloc.h>
#include <unistd.h>

#include "Publishing/PPDFields.h"
#include "Publishing/PPDInfo.h"
#include "bench/GeneratedPPD.h"
#include "bench/RatioTable.h"

namespace publishing::bench {
namespace {

constexpr const char* kInputSlot = "InputSlot";
constexpr double kLoadShare = 0.03;
constexpr double kTraysFaster = 50;
constexpr double kBytesAKeywordByte = 2;

struct ClosePPD {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using OpenedPPD = std::unique_ptr<ppd_file_t, ClosePPD>;

OpenedPPD openPPD(const std::string& path) {
  OpenedPPD ppd(ppdOpenFile(path.c_str()));
  if (ppd == nullptr) throw std::runtime_error(path + ": not a PPD");
  ppdMarkDefaults(ppd.get());
  return ppd;
}

// The panel's own load.
void load(PPDInfo& info, ppd_file_t* ppd) {
  info.loadPPDFile(ppd);
  info.loadConstraintsOnlyFor({kInputSlot}, ppd);
}

std::vector<std::string> traysOf(ppd_file_t* ppd) {
  std::vector<std::string> trays;
  for (const ppd_choice_t& tray : choicesOf(ppdFindOption(ppd, kInputSlot)))
    trays.emplace_back(tray.choice);
  return trays;
}

// Seconds that this thread has computed: other programs do not count.
double computed() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void openFile(benchmark::State& state, const std::string& path) {
  for (auto iteration : state) {
    const double begin = computed();
    const OpenedPPD ppd(ppdOpenFile(path.c_str()));
    state.SetIterationTime(computed() - begin);
  }
}

void loadModel(benchmark::State& state, const std::string& path) {
  const OpenedPPD ppd = openPPD(path);
  for (auto iteration : state) {
    PPDInfo info;
    load(info, ppd.get());
    benchmark::DoNotOptimize(info);
  }
}

// The load right after the PPD was opened, before the processor has its data at hand.
void loadFirstModel(benchmark::State& state, const std::string& path) {
  for (auto iteration : state) {
    const OpenedPPD ppd = openPPD(path);
    const double begin = computed();
    PPDInfo info;
    load(info, ppd.get());
    state.SetIterationTime(computed() - begin);
  }
}

void askAllTrays(benchmark::State& state, const std::string& path) {
  const OpenedPPD ppd = openPPD(path);
  const std::vector<std::string> trays = traysOf(ppd.get());
  PPDInfo info;
  load(info, ppd.get());
  for (auto iteration : state) {
    for (const std::string& tray : trays)
      benchmark::DoNotOptimize(info.willAllowChangeOfOption(kInputSlot, tray));
  }
}

void getConflictsOfAllTrays(benchmark::State& state, const std::string& path) {
  const OpenedPPD ppd = openPPD(path);
  const std::vector<std::string> trays = traysOf(ppd.get());
  for (auto iteration : state) {
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
std::vector<Sample> samplesIn(const std::string& folder) {
  std::vector<Sample> samples = {{"sample", SAMPLE_PPD, false}};
  for (const auto& [name, size] : {std::pair("100KB", 100'000UL), std::pair("1MB", 1'000'000UL)}) {
    samples.push_back({name, folder + "/" + name + ".ppd", true});
    std::ofstream(samples.back().path) << generatedPPD(size);
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
    comparisons.push_back({"model load/" + name, "ppdOpenFile/" + name, Goal::kShareAtMost,
                           large ? kLoadShare : kNoGoal});
    comparisons.push_back(
        {"first load/" + name, "ppdOpenFile/" + name, Goal::kShareAtMost, kNoGoal});
    comparisons.push_back(
        {"all trays/" + name, "cupsGetConflicts/" + name, Goal::kTimesFaster, kTraysFaster});
  }
  return comparisons;
}

int run(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;

  std::string folder = "/tmp/publishing-bench.XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("cannot make " + folder);
  const std::vector<Sample> samples = samplesIn(folder);
  const std::vector<Comparison> comparisons = registerComparisons(samples);

  MedianReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  bool met = printRatios(comparisons, reporter);
  for (const auto& [name, path, large] : samples) {
    met = printMemory(name, path) && met;
    if (large) std::remove(path.c_str());
  }
  rmdir(folder.c_str());
  return met ? 0 : 1;
}

}  // namespace
}  // namespace publishing::bench

int main(int argc, char** argv) {
  // Medians of interleaved repetitions: a busy moment of the machine hits ours and peers alike.
  std::vector<char*> arguments(argv, argv + argc);
  std::string repetitions = "--benchmark_repetitions=9";
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  std::string aggregates = "--benchmark_report_aggregates_only=true";
  std::string minimum = "--benchmark_min_time=0.02";
  arguments.insert(arguments.begin() + 1,
                   {repetitions.data(), interleaving.data(), aggregates.data(), minimum.data()});
  return publishing::bench::run(static_cast<int>(arguments.size()), arguments.data());
}
