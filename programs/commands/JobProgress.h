// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "printing/JobStatus.h"

namespace publishing {

// Follows a job until it is over, showing each change on standard error: on one line that is
// rewritten on a terminal, on a line of its own elsewhere. Returns the last status. Throws as
// followJob does.
JobStatus followWithProgress(int job);

}  // namespace publishing
