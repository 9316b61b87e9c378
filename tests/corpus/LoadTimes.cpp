// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/LoadTimes.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iomanip>
#include <memory>
#include <sstream>

#include "Publishing/ppd/PPDInfo.h"
#include "tests/corpus/Tally.h"

namespace publishing::corpus {
namespace {

constexpr int kRepeats = 4;
constexpr double kMedianGoal = 0.05;
constexpr double kHighestGoal = 0.25;
constexpr std::size_t kListed = 10;

struct ClosePPD {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using OpenedPPD = std::unique_ptr<ppd_file_t, ClosePPD>;

// Seconds of a clock that is read in 20 ns. To ask how long this thread has computed takes as long
// as loading a small PPD; that other programs take part of the time is what the repeats are for.
double now() {
  const auto time = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(time).count();
}

// Lowers `shortest` to the time of this run if that is shorter.
void shorten(double& shortest, const std::function<void()>& run) {
  const double begin = now();
  run();
  shortest = std::min(shortest, now() - begin);
}

void load(PPDInfo& info, ppd_file_t* ppd) {
  info.loadPPDFile(ppd);
  info.loadConstraintsOnlyFor({kTray}, ppd);
}

std::string with(double value, const char* unit) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(2) << value << ' ' << unit;
  return text.str();
}

}  // namespace

void LoadTimes::measure(const std::filesystem::path& path, const std::string& name) {
  Sample& sample = samples_[name];
  sample.name = name;
  sample.bytes = std::filesystem::file_size(path);
  for (int repeat = 0; repeat < kRepeats; ++repeat) {
    OpenedPPD ppd;
    shorten(sample.openSeconds, [&] { ppd.reset(ppdOpenFile(path.c_str())); });
    if (ppd == nullptr) {
      samples_.erase(name);
      return;
    }
    ppdMarkDefaults(ppd.get());
    PPDInfo first;
    shorten(sample.firstLoadSeconds, [&] { load(first, ppd.get()); });
    PPDInfo again;
    shorten(sample.loadSeconds, [&] { load(again, ppd.get()); });
  }
}

std::vector<LoadTimes::Sample> LoadTimes::samplesAbove(std::uintmax_t bytes) const {
  std::vector<Sample> samples;
  for (const auto& [name, sample] : samples_) {
    if (sample.bytes > bytes) samples.push_back(sample);
  }
  return samples;
}

std::vector<double> LoadTimes::sharesOf(const std::vector<Sample>& samples, Seconds load) {
  std::vector<double> shares;
  shares.reserve(samples.size());
  for (const Sample& sample : samples)
    shares.push_back(share(sample, load));
  std::sort(shares.begin(), shares.end());
  return shares;
}

bool LoadTimes::goalsMet() const {
  const auto all = sharesOf(samplesAbove(0), &Sample::firstLoadSeconds);
  return all.empty() || (all[all.size() / 2] <= kMedianGoal && all.back() <= kHighestGoal);
}

void LoadTimes::writeRow(std::ostream& out, const char* title, const std::vector<Sample>& samples,
                         Seconds load) {
  if (samples.empty()) return;
  const auto shares = sharesOf(samples, load);
  const auto above = shares.end() - std::upper_bound(shares.begin(), shares.end(), kHighestGoal);
  out << "| " << title << " | " << shares.size() << " | "
      << with(100 * shares[shares.size() / 2], "%") << " | " << with(100 * shares.back(), "%")
      << " | " << above << " |\n";
}

void LoadTimes::writeHighest(std::ostream& out) const {
  std::vector<Sample> highest = samplesAbove(0);
  std::sort(highest.begin(), highest.end(), [](const Sample& one, const Sample& other) {
    return share(one, &Sample::firstLoadSeconds) > share(other, &Sample::firstLoadSeconds);
  });
  highest.resize(std::min(highest.size(), kListed));
  for (const Sample& sample : highest) {
    out << "- " << with(100 * share(sample, &Sample::firstLoadSeconds), "%") << ": " << sample.name
        << ", " << sample.bytes << " bytes, open " << with(1e3 * sample.openSeconds, "ms")
        << ", first load " << with(1e6 * sample.firstLoadSeconds, "us") << ", load again "
        << with(1e6 * sample.loadSeconds, "us") << '\n';
  }
}

void LoadTimes::write(std::ostream& out) const {
  out << "| model load / ppdOpenFile | files | median | highest | above 25 % |\n"
         "|---|---:|---:|---:|---:|\n";
  writeRow(out, "first load, all files", samplesAbove(0), &Sample::firstLoadSeconds);
  writeRow(out, "first load, files above 100 KB", samplesAbove(kLargeFile),
           &Sample::firstLoadSeconds);
  writeRow(out, "load again, all files", samplesAbove(0), &Sample::loadSeconds);
  writeRow(out, "load again, files above 100 KB", samplesAbove(kLargeFile), &Sample::loadSeconds);
  out << "\nThe goals for a first load, a median of at most 5 % and at most 25 % for every file, "
         "are "
      << (goalsMet() ? "met" : "MISSED") << ".\n\nHighest first loads:\n\n";
  writeHighest(out);
}

}  // namespace publishing::corpus
