// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoversCheck.h"

#include <algorithm>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/ppd/PPDDocument.h"

namespace publishing {
namespace {

bool standsFor(const PPDChoice& medium, const PPDChoice& tray) {
  return medium.choice == tray.choice || medium.choice == "Slot." + tray.choice;
}

bool endsWithTrays(const PPDDocument& ppd, const char* option) {
  const auto media = ppd.choices(option);
  const auto trays = ppd.choices(cInputSlot);
  return media.size() > trays.size() &&
         std::equal(trays.rbegin(), trays.rend(), media.rbegin(),
                    [](const auto& tray, const auto& medium) { return standsFor(medium, tray); });
}

}  // namespace

void checkCovers(const std::string& text, const std::string& name) {
  const PPDDocument ppd = PPDDocument::openText(text, name);
  if (endsWithTrays(ppd, cCoverMediaType) && endsWithTrays(ppd, cPageMediaType)) return;
  throw PrintError::refused(
      translated("Its PPD does not list its trays in a way that can be relied on."));
}

}  // namespace publishing
