// SPDX-License-Identifier: Apache-2.0
// What the benchmarks of the PPD model share: opened PPDs, the panel's load, and a clock.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <cups/ppd.h>

#include "Publishing/ppd/PPDInfo.h"

namespace publishing::bench {

inline constexpr const char* kInputSlot = "InputSlot";

struct ClosePPD {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
using OpenedPPD = std::unique_ptr<ppd_file_t, ClosePPD>;

// With its defaults marked. Throws std::runtime_error for a file that is no PPD.
OpenedPPD openPPD(const std::string& path);

// The panel's own load.
void load(PPDInfo& info, ppd_file_t* ppd);

// The keywords of the choices of InputSlot.
std::vector<std::string> traysOf(ppd_file_t* ppd);

// Seconds that this thread has computed: other programs do not count.
double computedSeconds();

}  // namespace publishing::bench
