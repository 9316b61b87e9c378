// SPDX-License-Identifier: Apache-2.0
#include "shells/MediaReason.h"

#include "base/Translation.h"

namespace publishing {
namespace {

// The choice as a user reads it, "Media Type: Transparency"; keywords where the PPD has no texts.
std::string describe(const Printer& printer, const PPDInfo::MarkedChoice& marked) {
  const auto choice = printer.ppd()->choice(marked.option, marked.choice);
  if (choice) return choice->optionText + ": " + choice->choiceText;
  return shown(marked.option + ": " + marked.choice);
}

}  // namespace

std::string reasonAgainstMedia(const PublishingPDE& panel, const Printer& printer,
                               const char* mediaOption, std::int64_t index) {
  std::string sides;
  for (const auto& marked : panel.choicesForbiddingMedia(mediaOption, index)) {
    sides += (sides.empty() ? "" : ", ") + describe(printer, marked);
  }
  return sides.empty() ? sides : translated("conflicts with %s", sides);
}

}  // namespace publishing
