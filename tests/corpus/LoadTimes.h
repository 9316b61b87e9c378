// SPDX-License-Identifier: Apache-2.0
// How long the panel's model takes to load, beside opening the same PPD.
#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace publishing::corpus {

class LoadTimes {
 public:
  // Opens and loads the PPD a few times and keeps the shortest time of each, those of earlier calls
  // for it included: the one that other programs disturbed least. Who measures many files calls
  // this for all of them several times over, for a disturbance may last longer than one call.
  // Loading is what the panel does when it is bound to a printer: once right after the PPD was
  // opened, then again with its data at hand. A PPD that cannot be opened is skipped.
  void measure(const std::filesystem::path& path, const std::string& name);

  // Whether a first load takes at most 5 % of the time of opening the file, as the median, and at
  // most 25 % for every file.
  [[nodiscard]] bool goalsMet() const;

  // Medians and maxima of model load over ppdOpenFile, for all files and for those above 100 KB,
  // and the files with the highest share.
  void write(std::ostream& out) const;

 private:
  struct Sample {
    static constexpr double kNever = std::numeric_limits<double>::max();
    std::string name;
    std::uintmax_t bytes = 0;
    double openSeconds = kNever;
    double firstLoadSeconds = kNever;
    double loadSeconds = kNever;
  };

  // The load time in question as a share of the opening time.
  using Seconds = double Sample::*;
  static double share(const Sample& sample, Seconds load) {
    return sample.*load / sample.openSeconds;
  }
  [[nodiscard]] std::vector<Sample> samplesAbove(std::uintmax_t bytes) const;
  // Sorted.
  static std::vector<double> sharesOf(const std::vector<Sample>& samples, Seconds load);
  static void writeRow(std::ostream& out, const char* title, const std::vector<Sample>& samples,
                       Seconds load);
  void writeHighest(std::ostream& out) const;

  std::map<std::string, Sample> samples_;  // by name
};

}  // namespace publishing::corpus
