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

  // The server does not know the job any more, because it keeps no record of those that are over;
  // the state is the last one that was seen.
  bool isForgotten = false;

  // Nothing more will happen by itself: completed, cancelled, aborted, forgotten, or stopped by
  // filters that failed.
  [[nodiscard]] bool isOver() const { return isForgotten || state >= IPP_JSTATE_STOPPED; }
  [[nodiscard]] bool isCompleted() const { return state == IPP_JSTATE_COMPLETED; }

  // Over, and surely not printed.
  [[nodiscard]] bool isFailed() const { return !isForgotten && isOver() && !isCompleted(); }

  // One line for the user: "Job 12 is being printed: spooling page 3".
  [[nodiscard]] std::string text() const;

  bool operator==(const JobStatus&) const = default;
};

// Asks the server. Throws PrintError (Trouble) when it does not answer or does not know the job.
JobStatus askJobStatus(int job);

struct JobFollower {
  std::function<void(const JobStatus&)> changed;  // told of each change
  std::function<bool()> goesOn;                   // asked several times a second
};

// Follows a job that the server took until it is over, or `goesOn` answers no. Returns its last
// status. Throws PrintError (Trouble) when the server stops answering.
JobStatus followJob(int job, const JobFollower& follower = {});

}  // namespace publishing
