// SPDX-License-Identifier: Apache-2.0
// Writing the state to the job's print settings and handing the media choices to the host.
#include <algorithm>
#include <iterator>
#include <vector>

#include "Publishing/PageListAlert.h"
#include "Publishing/PublishingKeys.h"
#include "Publishing/PublishingPDE.h"
#include "Publishing/Utilities.h"
#include "Publishing/global.h"
#include "Publishing/parseNum.h"
#include "Publishing/ppd/PPDFields.h"

namespace publishing {
namespace {

// The stored form of a page list, with a comma after every page: "3,5,9,".
std::string joined(const std::vector<std::int32_t>& pages) {
  std::string text;
  for (const std::int32_t page : pages)
    text += std::to_string(page) + ',';
  return text;
}

}  // namespace

bool PublishingPDE::saveValuesAndReturnError() {
  updateSettings();
  ppd_file_t* ppd = currentPPD();
  saveCoverMode(ppd);
  return savePageInsert(ppd);
}

void PublishingPDE::saveCoverMode(ppd_file_t* ppd) {
  if (state_.covermodeEnableState != 1) {
    writePrintSetting(kCoverModeState, kStoredOff);
    for (const char* key : {kCoverModeValue, kCovermodeRadioButtonState, kCmIndex}) {
      writePrintSetting(key, std::nullopt);
    }
    return;
  }
  writePrintSetting(kCoverModeState, kStoredOn);
  writePrintSetting(kCoverModeValue, state_.covermodeValue);
  writePrintSetting(kCovermodeRadioButtonState, state_.covermodeRadioButtonState);
  writePrintSetting(kCmIndex, state_.cmIndex);
  const auto media = choicesOf(ppdFindOption(ppd, cCoverMediaType));
  const bool leftToPrinter =
      !media.empty() && boundedView(media.front().choice).find(kPrnDef) != std::string_view::npos;
  writePrintSetting(kUnspecifed, leftToPrinter ? "1" : "0");
  pushChoice(ppd, cCoverMediaType, *CmMediaType);
}

// A list that is empty or begins with something else than a page keeps Page Insert on, for the user
// to go on with; a list that does not parse stores nothing of it.
bool PublishingPDE::savePageInsert(ppd_file_t* ppd) {
  if (state_.pageinsertEnableState != 1) {
    writePrintSetting(kPageinsertState, kStoredOff);
    writePrintSetting(kPageinsertValue, std::nullopt);
    writePrintSetting(kPiIndex, std::nullopt);
    return true;
  }
  bool accepted = false;
  if (const auto alert = alertForPageText(state_.pageNumValue)) {
    runAlert(alert->title, alert->message);
  } else {
    accepted = savePageNumbers();
    if (!accepted) return false;
  }
  writePrintSetting(kPageinsertState, kStoredOn);
  writePrintSetting(kPageinsertValue, state_.pageinsertValue);
  writePrintSetting(kPiIndex, state_.piIndex);
  pushChoice(ppd, cPageMediaType, *PiMediaType);
  return accepted;
}

bool PublishingPDE::savePageNumbers() {
  std::vector<std::int32_t> pages;
  std::int32_t count = 0;
  const bool twoSided = isTwoSided();
  const std::int32_t result = ParsePageNumber(state_.pageNumValue, &pages, &count, twoSided,
                                              state_.covermodeValue, kHighestPage, kMostPages);
  if (result != kPageListOK) {
    const auto [title, message] = alertForPageList(result, twoSided, state_.covermodeValue);
    runAlert(title, message);
    return false;
  }
  writePrintSetting(kPageinsertNums, joined(pages));
  return true;
}

// The pop-up's index is the choice's index. Nothing is pushed when the PPD has no such choice (the
// printer changed under the panel) or when its keyword cannot be made a string.
void PublishingPDE::pushChoice(ppd_file_t* ppd, const char* option, const PopUpButton& popUp) {
  const auto choices = choicesOf(ppdFindOption(ppd, option));
  const std::int64_t index = std::max<std::int64_t>(popUp.indexOfSelectedItem(), 0);
  if (index >= std::ssize(choices)) return;
  const auto& field = choices[static_cast<std::size_t>(index)].choice;
  const auto choice = stringFromPPD(field, encodingOfPPD(ppd));
  if (!choice) return;
  if (RunningOn105OrLater()) {
    pdePluginCallbackObject->willChangePPDOptionKeyValue(option, *choice);
  } else {
    changePPDSettingForOption(option, *choice);
  }
}

void PublishingPDE::runAlert(const char* title, const char* message) {
  pluginBundle_->alertPanel().runAlertPanel(pluginBundle_->localizedString(title),
                                            pluginBundle_->localizedString(message),
                                            pluginBundle_->localizedString(kOK));
}

}  // namespace publishing
