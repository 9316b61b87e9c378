// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PanelReasons.h"

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "shells/MediaReason.h"
#include "shells/gtk/DisplayText.h"

namespace publishing {
namespace {

constexpr const char* kNeedsCovers = N_("Needs covers: tick “Add covers to the document”.");
constexpr const char* kNeedsSheets = N_("Needs sheets: tick “Add sheets between the pages”.");
constexpr const char* kNeedsTwoSided = N_("Needs two-sided printing: see the “Page Setup” tab.");
constexpr const char* kNeedsBackCover = N_("Needs a back cover: choose “Front and back covers”.");
constexpr const char* kNeedsOrder =
    N_("Needs the pages in order: switch off “Reverse” on the “General” tab.");
constexpr const char* kNeedsSinglePages =
    N_("Needs one page per side: see “Pages per side” on the “Page Setup” tab.");

// What the job lacks for covers and inserts; empty when it lacks nothing.
std::string reasonAgainstFeatures(const JobTicket& job) {
  if (job.getValue(kOutputOrder) == "Reverse") return translated(kNeedsOrder);
  if (job.getValue(kNup) == "1") return translated(kNeedsSinglePages);
  return {};
}

template <class Control>
void setReason(const Control* control, const std::string& reason) {
  const bool needed = !control->isEnabled() && !reason.empty();
  gtk_widget_set_tooltip_text(control->widget(), needed ? reason.c_str() : nullptr);
}

// One line for each greyed item: "Tray 2: conflicts with Media Type: Transparency".
std::string reasonsOfItems(const GtkPopUpButton& popUp, const PublishingPDE& panel,
                           const Printer& printer, const char* option) {
  std::string lines;
  for (std::int64_t index = 0; index < popUp.numberOfItems(); ++index) {
    const std::string reason = reasonAgainstMedia(panel, printer, option, index);
    if (popUp.isItemEnabledAtIndex(index) || reason.empty()) continue;
    lines += (lines.empty() ? "" : "\n") + popUp.itemTitleAtIndex(index) + ": " + reason;
  }
  return lines;
}

void showMediaReasons(const GtkPopUpButton& popUp, const std::string& ifDisabled,
                      const std::string& ofItems) {
  const std::string text = displayText(popUp.isEnabled() ? ofItems : ifDisabled);
  gtk_widget_set_tooltip_text(popUp.widget(), text.empty() ? nullptr : text.c_str());
}

}  // namespace

void showReasons(GtkInterface& interface, const PublishingPDE& panel, const Printer& printer,
                 const JobTicket& job) {
  const std::string against = reasonAgainstFeatures(job);
  const auto needs = [&against](bool featureOn, const char* feature, const char* otherwise) {
    return !against.empty() ? against : translated(featureOn ? otherwise : feature);
  };
  const bool covers = panel.state().covermodeEnableState == 1;
  const bool sheets = panel.state().pageinsertEnableState == 1;
  const bool backCover = interface.radioMatrix("CmFrontandBackMatrix")->selectedColumn() == 1;

  setReason(interface.checkBox("CmCheckBox"), against);
  setReason(interface.checkBox("PiCheckBox"), against);
  setReason(interface.radioMatrix("CmFrontandBackMatrix"), needs(covers, kNeedsCovers, ""));
  setReason(interface.checkBox("CmFrontOutside"), needs(covers, kNeedsCovers, ""));
  setReason(interface.checkBox("CmFrontInside"), needs(covers, kNeedsCovers, kNeedsTwoSided));
  setReason(interface.checkBox("CmBackOutside"),
            needs(covers, kNeedsCovers, backCover ? kNeedsTwoSided : kNeedsBackCover));
  setReason(interface.checkBox("CmBackInside"), needs(covers, kNeedsCovers, kNeedsBackCover));
  setReason(interface.textField("PiPageNum"), needs(sheets, kNeedsSheets, ""));
  setReason(interface.checkBox("PiPrintOnFront"), needs(sheets, kNeedsSheets, ""));
  setReason(interface.checkBox("PiPrintOnBack"), needs(sheets, kNeedsSheets, kNeedsTwoSided));

  const GtkPopUpButton& coverMedia = *interface.popUpButton("CmMediaType");
  const GtkPopUpButton& sheetMedia = *interface.popUpButton("PiMediaType");
  showMediaReasons(coverMedia, needs(covers, kNeedsCovers, ""),
                   reasonsOfItems(coverMedia, panel, printer, cCoverMediaType));
  showMediaReasons(sheetMedia, needs(sheets, kNeedsSheets, ""),
                   reasonsOfItems(sheetMedia, panel, printer, cPageMediaType));
}

}  // namespace publishing
