// How long the panel's model takes to load, beside opening the same PPD.
#pragma once

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace publishing::corpus {

class LoadTimes {
 public:
  // Opens and loads the PPD a few times and keeps the shortest time of each, in processor time of
  // this thread. Loading is what the panel does when it is bound to a printer: once right after the
  // PPD was opened, then again with its data at hand. A PPD that cannot be opened is skipped.
  void measure(const std::filesystem::path& path, const std::string& name);

  // Medians and maxima of model load over ppdOpenFile, for all files and for those above 100 KB,
  // and the files with the highest share.
  void write(std::ostream& out) const;

 private:
  struct Sample {
    std::string name;
    std::uintmax_t bytes;
    double openSeconds;
    double firstLoadSeconds;
    double loadSeconds;
  };

  // The load time in question as a share of the opening time.
  using Seconds = double Sample::*;
  static double share(const Sample& sample, Seconds load) {
    return sample.*load / sample.openSeconds;
  }
  [[nodiscard]] std::vector<Sample> largeSamples() const;
  static void writeRow(std::ostream& out, const char* title, const std::vector<Sample>& samples,
                       Seconds load);
  void writeHighest(std::ostream& out) const;

  std::vector<Sample> samples_;
};

}  // namespace publishing::corpus
