// SPDX-License-Identifier: Apache-2.0
// What covers and inserts cost a print server: processor time and memory of the filter.
//
//   filter-bench FILTER PPD
//
// FILTER is publishingtops. Every time is processor time, so that other programs count little, and
// the shortest of some rounds in which ours and its peers take turns: what makes a round longer is
// never what is measured. Exit status: 0 all goals met, 1 a
// goal missed, 2 something could not be measured.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "programs/filter/MediaCode.h"
#include "programs/filter/SheetWriter.h"

namespace publishing::bench {
namespace {

constexpr int kRounds = 7;
constexpr int kChainRounds = 4;
constexpr int kManyPages = 10000;
constexpr int kChainPages = 1000;
constexpr std::size_t kPhotograph = 100 * 1000 * 1000;
constexpr long kMostMemory = 16 * 1024;  // KiB

const std::map<std::string, std::string> kSheets = {
    {"VtCoverModeState", "On"},           {"VtCoverModeValue", "5"},
    {"VtCovermodeRadioButtonState", "2"}, {"CoverMediaType", "Coated"},
    {"VtPageinsertState", "On"},          {"VtPageinsertValue", "0"},
    {"PageMediaType", "Tray3"},           {"VtPageinsertNums", "5,8,90"},
    {"sides", "two-sided-long-edge"}};

std::string asText(const std::map<std::string, std::string>& options) {
  std::string text;
  for (const auto& [name, value] : options)
    text += name + "=" + value + " ";
  return text;
}

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

struct Cost {
  double seconds = 0;
  long memory = 0;  // KiB, of the largest process
};

Cost costOf(const rusage& used) {
  return {seconds(used.ru_utime) + seconds(used.ru_stime), used.ru_maxrss};
}

// A command with its output thrown away; what its own children cost counts as well.
Cost run(std::vector<std::string> command) {
  const pid_t process = fork();
  if (process == 0) {
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
      dup2(nothing, stream);
    std::vector<char*> arguments;
    for (std::string& word : command)
      arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }
  int status = 0;
  rusage used{};
  if (wait4(process, &status, 0, &used) != process || !WIFEXITED(status) ||
      WEXITSTATUS(status) != 0)
    throw std::runtime_error(command.front() + " failed");
  return costOf(used);
}

std::vector<std::string> filterCommand(const std::string& program, const std::string& options,
                                       const std::string& file) {
  return {program, "1", "user", "title", "1", options, file};
}

// Pages of some kilobytes of text, as office programs write them; the last ones may have a picture.
std::string writeDocument(const std::string& path, int pages, std::size_t pictureBytes = 0) {
  std::ofstream file(path, std::ios::binary);
  file << "%!PS-Adobe-3.0\n%%Pages: " << pages << "\n%%EndComments\n%%EndProlog\n";
  std::string lines;
  for (int line = 0; line < 60; ++line) {
    lines +=
        "72 " + std::to_string(780 - 12 * line) +
        " moveto (The quick brown fox jumps over the lazy dog, and over 100% of all fences) show\n";
  }
  std::minstd_rand random;  // the same picture each time
  for (int page = 1; page <= pages; ++page) {
    file << "%%Page: " << page << ' ' << page << "\n/Helvetica 10 selectfont\n" << lines;
    if (page > pages - 2 && pictureBytes > 0) {
      file << "%%BeginBinary: " << pictureBytes << '\n';
      for (std::size_t i = 0; i < pictureBytes; ++i)
        file.put(static_cast<char>(random()));
      file << '\n';
    }
    file << "showpage\n";
  }
  file << "%%Trailer\n%%EOF\n";
  return path;
}

// Reads the file and writes its sheets; in this process, without CUPS's filters.
Cost readAndPlan(const std::string& path, const FilterPPD& ppd) {
  rusage before{};
  rusage after{};
  getrusage(RUSAGE_SELF, &before);
  const FileDescriptor input(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  const FileDescriptor output(open("/dev/null", O_WRONLY | O_CLOEXEC));
  DescriptorSink printer(output.get());
  const SheetOrder order = readSheetOrder(kSheets, ppd.facts());
  SheetWriter writer(order, sheetCode(order, ppd), printer);
  DscReader document(
      [&](char* buffer, std::size_t size) { return readSome(input.get(), buffer, size); });
  while (const auto piece = document.next())
    writer.write(*piece);
  writer.finish();
  printer.flush();
  getrusage(RUSAGE_SELF, &after);
  if (writer.sides() < kManyPages) throw std::runtime_error("pages are missing");
  return {costOf(after).seconds - costOf(before).seconds, after.ru_maxrss};
}

using Measure = std::function<Cost()>;

// The shortest times, in the order of the measures, which take turns.
std::vector<double> shortest(const std::vector<Measure>& measures, int rounds) {
  std::vector<double> times(measures.size(), std::numeric_limits<double>::max());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < measures.size(); ++i)
      times[i] = std::min(times[i], measures[i]().seconds);
  }
  return times;
}

bool verdict(bool met) {
  std::printf("%s\n", met ? "met" : "MISSED");
  return met;
}

bool measureReading(const std::string& folder, const std::string& ppdFile) {
  FilterPPD ppd(ppdFile);
  ppd.mark(kSheets);
  const std::string file = writeDocument(folder + "/many.ps", kManyPages);
  const double megabytes = static_cast<double>(std::ifstream(file, std::ios::ate).tellg()) / 1e6;
  const auto list = shortest({[&] { return readAndPlan(file, ppd); },
                              [&] {
                                return run(filterCommand("/usr/lib/cups/filter/pstops",
                                                         "sides=two-sided-long-edge", file));
                              },
                              [&] {
                                return run({"wc", "-l", file});
                              }},
                             kRounds);
  const auto row = [&](const char* name, double time) {
    std::printf("%-34s %9.1f ms   %7.0f MB/s", name, time * 1e3, megabytes / time);
  };
  std::printf("%d pages of PostScript, %.0f MB\n", kManyPages, megabytes);
  row("reading and planning", list[0]);
  std::printf("   %.1f x faster than pstops   at least 3 x: ", list[1] / list[0]);
  const bool met = verdict(list[1] / list[0] >= 3);
  row("pstops", list[1]);
  std::printf("\n");
  row("wc -l", list[2]);
  std::printf("\n\n");
  return met;
}

bool measureMemory(const std::string& folder, const std::string& filter) {
  bool met = true;
  const auto row = [&](const std::string& name, const std::string& file) {
    const long memory = run(filterCommand(filter, asText(kSheets), file)).memory;
    std::printf("%-34s %9ld KiB   at most %ld KiB: ", name.c_str(), memory, kMostMemory);
    met = verdict(memory <= kMostMemory) && met;
  };
  setenv("CONTENT_TYPE", "application/postscript", 1);
  for (const int pages : {1, 100, kManyPages})
    row("memory, pages: " + std::to_string(pages), writeDocument(folder + "/memory.ps", pages));
  row("memory, photographs on the last two", writeDocument(folder + "/memory.ps", 4, kPhotograph));
  std::printf("\n");
  return met;
}

bool measureChain(const std::string& folder, const std::string& filter) {
  const std::string source = writeDocument(folder + "/chain.ps", kChainPages);
  const std::string pdf = folder + "/chain.pdf";
  run({"gs", "-q", "-sDEVICE=pdfwrite", "-o", pdf, source});
  setenv("CONTENT_TYPE", "application/pdf", 1);
  bool met = true;
  for (const std::string renderer : {"gs", "pdftops"}) {
    const std::string common = "sides=two-sided-long-edge pdftops-renderer=" + renderer;
    const auto list =
        shortest({[&] { return run(filterCommand(filter, asText(kSheets) + common, pdf)); },
                  [&] { return run(filterCommand(filter, common, pdf)); }},
                 kChainRounds);
    std::printf(
        "%d pages of PDF by %-12s with covers %.2f s, without %.2f s, ratio %.3f   "
        "at most 1.05: ",
        kChainPages, renderer.c_str(), list[0], list[1], list[0] / list[1]);
    met = verdict(list[0] / list[1] <= 1.05) && met;
  }
  return met;
}

int measureAll(const std::string& filter, const std::string& ppd) {
  std::string folder = "/tmp/filter-bench.XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
  setenv("PPD", ppd.c_str(), 1);
  bool met = measureReading(folder, ppd);
  met = measureMemory(folder, filter) && met;
  met = measureChain(folder, filter) && met;
  run({"rm", "-r", folder});
  return met ? 0 : 1;
}

}  // namespace
}  // namespace publishing::bench

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: filter-bench FILTER PPD\n");
    return 2;
  }
  try {
    return publishing::bench::measureAll(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "filter-bench: %s\n", error.what());
    return 2;
  }
}
