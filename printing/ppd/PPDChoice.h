// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <cups/ppd.h>

namespace publishing {

// A choice of an option, with what the user reads: texts are valid UTF-8 without control
// characters, whatever the PPD holds; a keyword stands in for an empty text.
struct PPDChoice {
  std::string option;  // keyword
  std::string optionText;
  std::string choice;  // keyword
  std::string choiceText;
  bool marked = false;
};

PPDChoice described(const ppd_option_t& option, const ppd_choice_t& choice);

}  // namespace publishing
