// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/JobProgress.h"

#include <iostream>

#include <unistd.h>

namespace publishing {

JobStatus followWithProgress(int job) {
  const bool terminal = isatty(STDERR_FILENO) != 0;
  JobStatus last = followJob(job, [terminal](const JobStatus& status) {
    constexpr const char* kBackAndErase = "\r\x1b[K";
    std::cerr << (terminal ? kBackAndErase : "") << status.text() << (terminal ? "" : "\n")
              << std::flush;
    return true;
  });
  if (terminal) std::cerr << '\n';
  return last;
}

}  // namespace publishing
