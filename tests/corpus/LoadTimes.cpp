#include "tests/corpus/LoadTimes.h"

#include <algorithm>
#include <ctime>
#include <functional>
#include <iomanip>
#include <iterator>
#include <limits>
#include <memory>
#include <sstream>

#include "Publishing/PPDInfo.h"
#include "tests/corpus/Tally.h"

namespace publishing::corpus {
namespace {

constexpr int kRepeats = 7;
constexpr double kGoal = 0.03;
constexpr std::size_t kListed = 10;

struct ClosePPD {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using OpenedPPD = std::unique_ptr<ppd_file_t, ClosePPD>;

// Seconds that this thread has computed: other programs do not count.
double computed() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// Lowers `shortest` to the time of this run if that is shorter.
void shorten(double& shortest, const std::function<void()>& run) {
  const double begin = computed();
  run();
  shortest = std::min(shortest, computed() - begin);
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
  constexpr double kNever = std::numeric_limits<double>::max();
  Sample sample{name, std::filesystem::file_size(path), kNever, kNever, kNever};
  for (int repeat = 0; repeat < kRepeats; ++repeat) {
    OpenedPPD ppd;
    shorten(sample.openSeconds, [&] { ppd.reset(ppdOpenFile(path.c_str())); });
    if (ppd == nullptr) return;
    ppdMarkDefaults(ppd.get());
    PPDInfo first;
    shorten(sample.firstLoadSeconds, [&] { load(first, ppd.get()); });
    PPDInfo again;
    shorten(sample.loadSeconds, [&] { load(again, ppd.get()); });
  }
  samples_.push_back(sample);
}

std::vector<LoadTimes::Sample> LoadTimes::largeSamples() const {
  std::vector<Sample> large;
  std::copy_if(samples_.begin(), samples_.end(), std::back_inserter(large),
               [](const Sample& sample) { return sample.bytes > kLargeFile; });
  return large;
}

void LoadTimes::writeRow(std::ostream& out, const char* title, const std::vector<Sample>& samples,
                         Seconds load) {
  if (samples.empty()) return;
  std::vector<double> shares;
  shares.reserve(samples.size());
  for (const Sample& sample : samples)
    shares.push_back(share(sample, load));
  std::sort(shares.begin(), shares.end());
  const auto above = shares.end() - std::upper_bound(shares.begin(), shares.end(), kGoal);
  out << "| " << title << " | " << shares.size() << " | "
      << with(100 * shares[shares.size() / 2], "%") << " | " << with(100 * shares.back(), "%")
      << " | " << above << " |\n";
}

void LoadTimes::writeHighest(std::ostream& out) const {
  std::vector<Sample> large = largeSamples();
  std::sort(large.begin(), large.end(), [](const Sample& one, const Sample& other) {
    return share(one, &Sample::loadSeconds) > share(other, &Sample::loadSeconds);
  });
  large.resize(std::min(large.size(), kListed));
  for (const Sample& sample : large) {
    out << "- " << with(100 * share(sample, &Sample::loadSeconds), "%") << ": " << sample.name
        << ", " << sample.bytes << " bytes, open " << with(1e3 * sample.openSeconds, "ms")
        << ", first load " << with(1e6 * sample.firstLoadSeconds, "us") << ", load again "
        << with(1e6 * sample.loadSeconds, "us") << '\n';
  }
}

void LoadTimes::write(std::ostream& out) const {
  out << "| model load / ppdOpenFile | files | median | highest | above 3 % |\n"
         "|---|---:|---:|---:|---:|\n";
  writeRow(out, "first load, all files", samples_, &Sample::firstLoadSeconds);
  writeRow(out, "first load, files above 100 KB", largeSamples(), &Sample::firstLoadSeconds);
  writeRow(out, "load again, all files", samples_, &Sample::loadSeconds);
  writeRow(out, "load again, files above 100 KB", largeSamples(), &Sample::loadSeconds);
  out << "\nHighest above 100 KB, loaded again:\n\n";
  writeHighest(out);
}

}  // namespace publishing::corpus
