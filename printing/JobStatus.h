// SPDX-License-Identifier: Apache-2.0
// What became of a job.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <cups/ipp.h>

namespace publishing {

struct JobStatus {
  int job = 0;
  ipp_jstate_t state = IPP_JSTATE_PENDING;
  std::vector<std::string> reasons;  // IPP keywords that say more than the state
  std::string message;               // of the printer, for the user; often empty

  // No more changes will come: completed, cancelled or aborted.
  [[nodiscard]] bool isOver() const { return state >= IPP_JSTATE_CANCELED; }
  [[nodiscard]] bool isCompleted() const { return state == IPP_JSTATE_COMPLETED; }

  // One line for the user: "Job 12 is being printed: spooling page 3".
  [[nodiscard]] std::string text() const;

  bool operator==(const JobStatus&) const = default;
};

// Asks the server. Throws PrintError (Trouble) when it does not answer or does not know the job.
JobStatus askJobStatus(int job);

// Waits until the job is over and returns its last status. `changed` is told of the first status
// and of every one that differs from the one before, and answers whether to go on waiting. Throws
// as askJobStatus does.
JobStatus followJob(int job, const std::function<bool(const JobStatus&)>& changed = {});

}  // namespace publishing
