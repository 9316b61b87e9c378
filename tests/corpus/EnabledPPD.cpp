// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/EnabledPPD.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>

#include <sys/wait.h>
#include <unistd.h>

#include "base/MemoryFile.h"
#include "printing/PrintError.h"
#include "printing/covers/CoversCheck.h"
#include "printing/covers/CoversPPD.h"
#include "tests/corpus/CoverConstraintsCheck.h"

namespace publishing::corpus {
namespace {

constexpr Count kThoroughEvery = 50;  // files of a kind

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string withLineEnds(const std::string& text, const std::string& end) {
  std::string result;
  for (std::size_t place = 0; place < text.size(); ++place) {
    if (text[place] == '\r' && text.substr(place + 1, 1) == "\n") continue;
    if (text[place] == '\n' || text[place] == '\r') {
      result += end;
    } else {
      result += text[place];
    }
  }
  return result;
}

// --- cupstestppd ---

struct Verdict {
  int status = 0;
  Count failures = 0;
};

Verdict verdictOf(const std::string& cupstestppd, const std::string& text) {
  const MemoryFile file(text);
  const std::string path = "/proc/" + std::to_string(getpid()) + file.path().substr(10);
  std::FILE* pipe = popen((cupstestppd + " -v " + path).c_str(), "r");
  std::array<char, 4096> line{};
  Verdict verdict;
  while (std::fgets(line.data(), line.size(), pipe) != nullptr) {
    if (std::string_view(line.data()).find("**FAIL**") != std::string_view::npos)
      ++verdict.failures;
  }
  verdict.status = WEXITSTATUS(pclose(pipe));
  return verdict;
}

// --- one file ---

// The reason without the driver's name, so that all with the same reason count together.
std::string withoutDriver(std::string reason, const std::string& driver) {
  const std::size_t place = driver.empty() ? std::string::npos : reason.find(driver);
  return place == std::string::npos ? reason : reason.replace(place, driver.size(), "...");
}

class EnabledCheck {
 public:
  EnabledCheck(const std::string& before, const std::string& name, EnabledTally& tally)
      : before_(before), name_(name), tally_(tally) {}

  void run(const std::string& cupstestppd) {
    const CoversState state = coversStateOf(before_);
    KindTally& kind = tally_.kinds[nameOf(state.verdict.kind)];
    ++kind.files;
    std::string after;
    try {
      after = withCovers(before_);
      checkCovers(after, name_);
    } catch (const PrintError& error) {
      ++kind.refusals[withoutDriver(error.what(), state.verdict.driver)];
      if (error.kind() != PrintError::Kind::Refused) wrong(error.what());
      return;
    }
    ++kind.enabled;
    kind.bytesBefore += before_.size();
    kind.bytesAfter += after.size();
    if (!coversStateOf(after).enabled || withCovers(after) != after) wrong("not idempotent");
    compareConstraints(after, kind);
    checkWayBack();
    if (!cupstestppd.empty()) compareVerdicts(after, cupstestppd);
  }

 private:
  void compareConstraints(const std::string& after, KindTally& kind) {
    const bool thorough = kind.enabled % kThoroughEvery == 1;
    const ConstraintComparison found = compareCoverConstraints(before_, after, name_, thorough);
    kind.pairs += found.pairs;
    kind.forbidden += found.forbidden;
    kind.queries += found.queries;
    kind.queriesForbidden += found.queriesForbidden;
    for (const std::string& medium : found.different)
      wrong("other constraints for " + medium);
  }

  void checkWayBack() {
    for (const char* end : {"", "\n", "\r\n", "\r"}) {
      const std::string text = *end == '\0' ? before_ : withLineEnds(before_, end);
      const std::string enabled = withCovers(text);
      if (withoutCovers(enabled) != text) wrong("not the same bytes after disabling");
      const std::string_view key = "*DefaultPageSize: ";
      if (withoutCovers(changed(enabled, key)) != changed(text, key))
        wrong("not the same bytes after a change");
    }
  }

  static std::string changed(std::string text, std::string_view key) {
    const std::size_t place = text.find(key);
    if (place != std::string::npos) text.insert(place + key.size(), "Another");
    return text;
  }

  void compareVerdicts(const std::string& after, const std::string& cupstestppd) {
    const Verdict first = verdictOf(cupstestppd, before_);
    const Verdict second = verdictOf(cupstestppd, after);
    ++tally_.checkedByCups;
    if (second.failures > first.failures) ++tally_.moreFailures;
    if (first.status != second.status) wrong("another verdict of cupstestppd");
  }

  void wrong(const std::string& what) { tally_.wrong.push_back(name_ + ": " + what); }

  const std::string& before_;
  const std::string& name_;
  EnabledTally& tally_;
};

}  // namespace

void checkEnabledPPD(const std::filesystem::path& path, const std::string& name,
                     const std::string& cupstestppd, EnabledTally& tally) {
  const std::string text = contentsOf(path);
  EnabledCheck(text, name, tally).run(cupstestppd);
}

void writeEnabledReport(std::ostream& out, const EnabledTally& tally) {
  out << "| kind | files | enabled | growth | pairs | forbidden | questions to libcups | answered "
         "no "
         "|\n|---|---:|---:|---:|---:|---:|---:|---:|\n";
  for (const auto& [name, kind] : tally.kinds) {
    const Count growth =
        kind.bytesBefore == 0 ? 0 : (kind.bytesAfter - kind.bytesBefore) * 100 / kind.bytesBefore;
    out << "| " << name << " | " << kind.files << " | " << kind.enabled << " | " << growth
        << " % | " << kind.pairs << " | " << kind.forbidden << " | " << kind.queries << " | "
        << kind.queriesForbidden << " |\n";
  }
  out << "\n| kind | refused because | files |\n|---|---|---:|\n";
  for (const auto& [name, kind] : tally.kinds) {
    for (const auto& [reason, files] : kind.refusals)
      out << "| " << name << " | " << reason << " | " << files << " |\n";
  }
  out << "\ncupstestppd: " << tally.checkedByCups << " files compared, " << tally.moreFailures
      << " with more failures than before\n";
  if (!tally.wrong.empty()) out << "\nWrong:\n\n";
  for (const std::string& line : tally.wrong)
    out << "- " << line << '\n';
}

}  // namespace publishing::corpus
