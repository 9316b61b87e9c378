// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/JobProgress.h"

#include <chrono>
#include <iostream>

#include <unistd.h>

#include "base/Translation.h"
#include "programs/terminal/Interruption.h"

namespace publishing {
namespace {

constexpr const char* kBackAndErase = "\r\x1b[K";

int percentOf(std::uint64_t sent, std::uint64_t total) {
  return total == 0
             ? 100
             : static_cast<int>(100.0 * static_cast<double>(sent) / static_cast<double>(total));
}

}  // namespace

JobProgress::JobProgress() : isTerminal_(isatty(STDERR_FILENO) != 0) {}

JobProgress::~JobProgress() {
  if (hasLine_) std::cerr << '\n';
}

void JobProgress::show(const std::string& text) {
  hasLine_ = isTerminal_;
  std::cerr << (isTerminal_ ? kBackAndErase : "") << shownLines(text) << (isTerminal_ ? "" : "\n")
            << std::flush;
}

SendProgress JobProgress::sending(const std::string& title) {
  return [this, title, last = -1](std::uint64_t sent, std::uint64_t total) mutable {
    const int percent = percentOf(sent, total);
    if (isTerminal_ && percent != last) {
      show(translated("Sending %s: %d %%", shown(title), percent));
    }
    last = percent;
    return !Interruption::happened();
  };
}

JobStatus JobProgress::follow(int job, std::optional<int> seconds) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point end = Clock::now() + std::chrono::seconds(seconds.value_or(0));
  return followJob(
      job,
      {.changed = [this](const JobStatus& status) { show(status.text()); },
       .goesOn = [&] { return !Interruption::happened() && (!seconds || Clock::now() < end); }});
}

}  // namespace publishing
