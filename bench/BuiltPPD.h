// SPDX-License-Identifier: Apache-2.0
// A PPD with any number of options, made in memory: libcups opens a file of N options in a time
// that grows with N squared, which no one would wait for.
#pragma once

#include <vector>

#include <cups/ppd.h>

namespace publishing::bench {

// Holds `options` options of two choices each in groups of a thousand, the first choice of each
// marked, and the option "InputSlot" with four trays. No constraints. Fit for look-ups, for marks
// that do not change and for PPDInfo; not to be given to ppdClose.
class BuiltPPD {
 public:
  explicit BuiltPPD(int options);
  ~BuiltPPD();
  BuiltPPD(const BuiltPPD&) = delete;
  BuiltPPD& operator=(const BuiltPPD&) = delete;

  [[nodiscard]] ppd_file_t* get() { return &ppd_; }

 private:
  void addOption(const char* keyword, const char* choicePrefix, int choices);

  ppd_file_t ppd_{};
  std::vector<ppd_group_t> groups_;
  std::vector<ppd_option_t> options_;
  std::vector<ppd_choice_t> choices_;
};

}  // namespace publishing::bench
