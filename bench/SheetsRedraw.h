// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// The time that the thread computes, in milliseconds, from a gesture in the panel to the picture
// of its sheets: a job of 24 pages with covers and five inserts for that queue is planned, laid out
// and painted. The median of many rounds.
double sheetsRedrawTime(const std::string& queue);

}  // namespace publishing
