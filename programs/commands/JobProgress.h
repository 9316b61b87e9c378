// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "printing/JobStatus.h"
#include "printing/Submission.h"

namespace publishing {

// How far a job is, on standard error: on one line that is rewritten on a terminal, on lines of
// their own elsewhere. Ends the line, if there is one, when it goes.
class JobProgress {
 public:
  JobProgress();
  ~JobProgress();
  JobProgress(const JobProgress&) = delete;
  JobProgress& operator=(const JobProgress&) = delete;

  // Says how much of the job was sent; on a terminal only, for there it goes again. The job is
  // cancelled when the program is interrupted.
  SendProgress sending(const std::string& title);

  // Follows a job until it is over, the seconds are over, or the program is interrupted. Returns
  // the last status. Throws as followJob does.
  JobStatus follow(int job, std::optional<int> seconds);

 private:
  void show(const std::string& text);

  bool isTerminal_;
  bool hasLine_ = false;
};

}  // namespace publishing
