// SPDX-License-Identifier: Apache-2.0
#include "shells/HostMessages.h"

namespace publishing {

std::string linesOf(const std::vector<std::string>& texts) {
  std::string lines;
  for (const std::string& text : texts)
    lines += (lines.empty() ? "" : "\n") + text;
  return lines;
}

HostMessage conflictMessage(const std::vector<Conflict>& conflicts) {
  std::string lines;
  for (const Conflict& conflict : conflicts)
    lines += (lines.empty() ? "" : "\n") + conflict.text();
  return {translated("The printer cannot combine these choices."), lines};
}

HostMessage lossMessage(const std::string& losses) {
  return {translated("Not everything that is remembered can be printed."), losses};
}

HostMessage missingHelpMessage(const std::string& folder) {
  return {translated("The help cannot be shown."),
          translated("Install a web browser, or open this page with another program: %s",
                     folder + "/help/C/index.html")};
}

}  // namespace publishing
