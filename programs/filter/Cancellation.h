// SPDX-License-Identifier: Apache-2.0
// SIGTERM: the print server cancels the job.
#pragma once

#include <exception>

namespace publishing {

class JobCancelled : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "the job was cancelled"; }
};

// From now on SIGTERM and SIGINT do not end the process but interrupt its system calls, now and
// again until it is done, so that none can wait forever. SIGPIPE is ignored.
void watchForCancellation();

// Gives a child, before it becomes another program, the system's ways with signals back.
void forgetCancellation();

[[nodiscard]] bool isCancelled();

// Throws JobCancelled.
void throwIfCancelled();

}  // namespace publishing
