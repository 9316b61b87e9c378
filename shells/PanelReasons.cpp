// SPDX-License-Identifier: Apache-2.0
#include "shells/PanelReasons.h"

#include "Publishing/PublishingFeatures.h"
#include "base/Translation.h"
#include "shells/MediaReason.h"

namespace publishing {
namespace {

constexpr const char* kNeedsCovers = N_("Needs covers: tick “Add covers to the document”.");
constexpr const char* kNeedsSheets = N_("Needs sheets: tick “Add sheets between the pages”.");
constexpr const char* kNeedsBackCover = N_("Needs a back cover: choose “Front and back covers”.");
constexpr const char* kNeedsOrderOfDefaults =
    N_("Needs the pages in order; the printer's default options reverse them (see: lpoptions -p "
       "%s).");
constexpr const char* kNeedsSinglePagesOfDefaults =
    N_("Needs one page per side; the default options ask for several or for a booklet (see: "
       "lpoptions -p %s).");

// What to do in place of choosing the driver's choice of no medium.
constexpr const char* kUntickCovers = N_("untick “Add covers to the document” for that");
constexpr const char* kUntickSheets = N_("untick “Add sheets between the pages” for that");

// One line for each greyed item: "Tray 2: conflicts with Media Type: Transparency".
std::string reasonsOfItems(const PopUpButton& popUp, const PublishingPDE& panel,
                           const Printer& printer, const char* option, const char* withoutMedium) {
  const auto none = placeOfNone(printer, option);
  std::string lines;
  for (std::int64_t index = 0; index < popUp.numberOfItems(); ++index) {
    if (popUp.isItemEnabledAtIndex(index)) continue;
    const std::string reason = index == none ? translated(withoutMedium)
                                             : reasonAgainstMedia(panel, printer, option, index);
    if (reason.empty()) continue;
    lines += (lines.empty() ? "" : "\n") + popUp.itemTitleAtIndex(index) + ": " + reason;
  }
  return lines;
}

}  // namespace

std::string reasonAgainstFeatures(const DialogJob& dialog, const JobTicket& job,
                                  const Printer& printer, const DialogPlaces& places) {
  if (job.getValue(kOutputOrder) == "Reverse") {
    return dialog.reverse ? translated(places.needsOrder)
                          : translated(kNeedsOrderOfDefaults, printer.name());
  }
  if (job.getValue(kNup) == "1") {
    return dialog.numberUp > 1 ? translated(places.needsSinglePages)
                               : translated(kNeedsSinglePagesOfDefaults, printer.name());
  }
  return {};
}

std::string reasonAgainstList(const PublishingPDE& panel, const std::string& against) {
  if (panel.state().pageinsertEnableState == 1) return {};
  return against.empty() ? translated(kNeedsSheets) : against;
}

void showReasons(HostBundle& bundle, const PanelControls& controls, const PublishingPDE& panel,
                 const Printer& printer, const std::string& against, const DialogPlaces& places) {
  const auto needs = [&against](bool featureOn, const char* feature, const char* otherwise) {
    return !against.empty() ? against : translated(featureOn ? otherwise : feature);
  };
  const auto explain = [&bundle](const char* name, const Control& control,
                                 const std::string& ifDisabled) {
    bundle.setTooltip(name, control.isEnabled() ? std::string() : ifDisabled);
  };
  const auto explainBox = [&](const char* name, const std::string& ifDisabled) {
    explain(name, controls.checkBox(name), ifDisabled);
  };
  const auto explainMedia = [&](const PublishingFeature& feature, const std::string& ifDisabled,
                                const char* withoutMedium) {
    const PopUpButton& popUp = controls.popUp(feature.popUp);
    bundle.setTooltip(feature.popUp,
                      popUp.isEnabled()
                          ? reasonsOfItems(popUp, panel, printer, feature.option, withoutMedium)
                          : ifDisabled);
  };
  const bool covers = panel.state().covermodeEnableState == 1;
  const bool sheets = panel.state().pageinsertEnableState == 1;
  const RadioMatrix& kinds = controls.radioMatrix(outlet::CmFrontandBackMatrix);
  const bool backCover = kinds.selectedColumn() == 1;

  explainBox(outlet::CmCheckBox, against);
  explain(outlet::CmFrontandBackMatrix, kinds, needs(covers, kNeedsCovers, ""));
  explainMedia(kCoverMode, needs(covers, kNeedsCovers, ""), kUntickCovers);
  explainBox(outlet::CmFrontOutside, needs(covers, kNeedsCovers, ""));
  explainBox(outlet::CmFrontInside, needs(covers, kNeedsCovers, places.needsTwoSided));
  explainBox(outlet::CmBackOutside,
             needs(covers, kNeedsCovers, backCover ? places.needsTwoSided : kNeedsBackCover));
  explainBox(outlet::CmBackInside, needs(covers, kNeedsCovers, kNeedsBackCover));

  explainBox(outlet::PiCheckBox, against);
  explainMedia(kPageInsert, needs(sheets, kNeedsSheets, ""), kUntickSheets);
  explainBox(outlet::PiPrintOnFront, needs(sheets, kNeedsSheets, ""));
  explainBox(outlet::PiPrintOnBack, needs(sheets, kNeedsSheets, places.needsTwoSided));
}

}  // namespace publishing
