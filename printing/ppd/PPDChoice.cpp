// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/PPDChoice.h"

#include <string_view>

#include "Publishing/ppd/PPDFields.h"
#include "base/Translation.h"

namespace publishing {
namespace {

std::string textOf(std::string_view text, std::string_view keyword) {
  return shown(std::string(text.empty() ? keyword : text));
}

}  // namespace

PPDChoice described(const ppd_option_t& option, const ppd_choice_t& choice) {
  const std::string_view keyword = boundedView(option.keyword);
  const std::string_view chosen = boundedView(choice.choice);
  return {std::string(keyword), textOf(boundedView(option.text), keyword), std::string(chosen),
          textOf(boundedView(choice.text), chosen), choice.marked != 0};
}

}  // namespace publishing
