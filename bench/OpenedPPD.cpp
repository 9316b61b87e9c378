// SPDX-License-Identifier: Apache-2.0
#include "bench/OpenedPPD.h"

#include <ctime>
#include <stdexcept>

#include "Publishing/ppd/PPDFields.h"

namespace publishing::bench {

OpenedPPD openPPD(const std::string& path) {
  OpenedPPD ppd(ppdOpenFile(path.c_str()));
  if (ppd == nullptr) throw std::runtime_error(path + ": not a PPD");
  ppdMarkDefaults(ppd.get());
  return ppd;
}

void load(PPDInfo& info, ppd_file_t* ppd) {
  info.loadPPDFile(ppd);
  info.loadConstraintsOnlyFor({kInputSlot}, ppd);
}

std::vector<std::string> traysOf(ppd_file_t* ppd) {
  std::vector<std::string> trays;
  for (const ppd_choice_t& tray : choicesOf(ppdFindOption(ppd, kInputSlot)))
    trays.emplace_back(tray.choice);
  return trays;
}

double computedSeconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

}  // namespace publishing::bench
