// SPDX-License-Identifier: Apache-2.0
#include "tests/corpus/Difference.h"

#include <algorithm>

namespace publishing::corpus {
namespace {

// The panel itself lets "None" and "False" off, spelled so.
bool isOffForCupsOnly(const std::string& choice) {
  const bool off =
      sameForCups(choice, "None") || sameForCups(choice, "Off") || sameForCups(choice, "False");
  return off && choice != "None" && choice != "False";
}

bool isPageSize(const std::string& option) {
  return sameForCups(option, "PageSize") || sameForCups(option, "PageRegion");
}

bool covers(const std::string& constrained, const std::string& choice) {
  return constrained.empty() || constrained == choice;
}

bool coversForCups(const std::string& constrained, const std::string& choice) {
  return constrained.empty() || sameForCups(constrained, choice);
}

bool isCustomOf(const Side& side, const std::string& option) {
  return sameForCups(side.option, "Custom" + option) && sameForCups(side.choice, "True");
}

}  // namespace

const char* nameOf(Difference difference) {
  switch (difference) {
    case Difference::Off:
      return "off choices";
    case Difference::PageSize:
      return "page size";
    case Difference::Custom:
      return "custom choice";
    case Difference::Spelling:
      return "upper and lower case";
    case Difference::OwnTray:
      return "tray against tray";
    case Difference::Unexplained:
      break;
  }
  return "UNEXPLAINED";
}

Difference whyOnlyPanelForbids(const TrayQuery& query, const Side& marked) {
  if (sameForCups(marked.option, kTray)) return Difference::OwnTray;
  // Every constraint that the panel can have gone by needs a reason; one without is enough.
  Difference reason = Difference::Unexplained;
  for (const auto& [tray, other, trayFirst] : query.constraints) {
    if (other.option != marked.option || !covers(tray.choice, query.tray) ||
        !covers(other.choice, marked.choice))
      continue;
    const bool off = (tray.choice.empty() && isOffForCupsOnly(query.tray)) ||
                     (other.choice.empty() && isOffForCupsOnly(marked.choice));
    if (off) {
      reason = Difference::Off;
    } else if (isPageSize(other.option) && !sameForCups(marked.choice, query.pageSize)) {
      reason = Difference::PageSize;
    } else {
      return Difference::Unexplained;
    }
  }
  return reason;
}

Difference whyOnlyCupsForbids(const TrayQuery& query, const Side& reported,
                              const std::string& marked) {
  for (const auto& [tray, other, trayFirst] : query.constraints) {
    if (!coversForCups(tray.choice, query.tray)) continue;
    if (isCustomOf(other, reported.option)) return Difference::Custom;
    if (!sameForCups(other.option, reported.option) ||
        !coversForCups(other.choice, reported.choice))
      continue;
    if (isPageSize(other.option) && reported.choice != marked) return Difference::PageSize;
    const bool toTheLetter = tray.option == kTray && covers(tray.choice, query.tray) &&
                             other.option == reported.option &&
                             covers(other.choice, reported.choice);
    return toTheLetter ? Difference::Unexplained : Difference::Spelling;
  }
  return Difference::Unexplained;
}

}  // namespace publishing::corpus
