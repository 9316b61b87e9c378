// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <cups/ppd.h>

#include "Publishing/PublishingSettings.h"
#include "Publishing/platform/Bundle.h"
#include "Publishing/platform/InterfaceOwner.h"
#include "Publishing/platform/Outlet.h"
#include "Publishing/platform/PDEPluginCallback.h"
#include "Publishing/ppd/PPDInfo.h"

namespace publishing {

// The panel "Publishing" of a print dialog: covers and inserted sheets.
//
// A host drives it in this order: panelView (before the first restore, or the page-number field
// stays without its formatter), restoreValuesAndReturnError when the job's settings are there,
// willShow each time before the panel is seen, saveValuesAndReturnError to take the user's choices.
// Everything runs on the dialog's thread. The panel reads the host's PPD and never marks, keeps
// open or frees it.
class PublishingPDE final : public InterfaceOwner {
 public:
  // Throws std::invalid_argument without a callback object or without a bundle.
  PublishingPDE(std::shared_ptr<PDEPluginCallback> callback, std::shared_ptr<Bundle> bundle);
  PublishingPDE(const PublishingPDE&) = delete;
  PublishingPDE& operator=(const PublishingPDE&) = delete;

  // --- what the host asks ---

  [[nodiscard]] Bundle& pluginBundle() const { return *pluginBundle_; }
  [[nodiscard]] static std::string panelKind();

  // The localized name; the same string on every call.
  const std::string& panelName();

  // The panel's view, loaded on the first call; null when the bundle has no interface for it, which
  // is then looked for again on the next call. What the bundle throws while it loads goes on to the
  // caller, and the next call loads again.
  View* panelView();

  // Always true: the panel asks not to be listed by itself. Whether a host heeds that is its rule.
  [[nodiscard]] static bool shouldHide();

  // Brings the panel up to date with the printer's PPD, its marks and the job's settings.
  void willShow();

  // Takes the state from the job's print settings. Always true: absent or broken values fall back.
  bool restoreValuesAndReturnError();

  // Writes the state to the job's print settings and hands the media choices to the host. False
  // after an alert told the user what is wrong with the page list; Cover Mode is stored even then.
  bool saveValuesAndReturnError();

  // Opens the help book at its start page. True when the help viewer reported a status other
  // than 0, which tells the host that help is left to it.
  bool shouldShowHelp();

  // The features' localized names with "On", or the localized "Off".
  [[nodiscard]] std::map<std::string, std::string> summaryInfo() const;

  // The PPD options that the panel handles; the same list on every call.
  const std::vector<std::string>& supportedPPDOptionKeys();

  // The road to the PPD and to its choices on systems before 10.5, which this build does not
  // support: always null, and always 0 with nothing done.
  static ppd_file_t* getPPDOnTiger();
  static std::int32_t changePPDSettingForOption(const std::string& option,
                                                const std::string& choice);

  // Why an item of a media pop-up is disabled: the marked choices that forbid its tray. None for an
  // item that is allowed or that stands for no tray. `mediaOption` is the keyword of the pop-up's
  // PPD option, `index` the item's.
  [[nodiscard]] std::vector<PPDInfo::MarkedChoice> choicesForbiddingMedia(const char* mediaOption,
                                                                          std::int64_t index) const;

  // --- building ---

  [[nodiscard]] std::vector<OutletBinding> outlets() override;
  [[nodiscard]] std::vector<ActionBinding> actions() override;

  // Fills the media pop-ups from the PPD and prepares the controls. Without a PPD or an option its
  // pop-up stays empty.
  void awakeFromNib() override;

  // Binds the panel to the host's present PPD and makes a new model of it. Without a PPD the model
  // stays that of the last one.
  void initializeUI();

  // --- keeping state and controls in step ---

  // Copies what the controls show into the state.
  void updateSettings();

  // Reads the controls, then rewrites them from the state and the print settings.
  void updateUI();

  // Enables the media items that stand for trays as the PPD's constraints allow.
  void updateConstraints();

  // --- what the user does ---

  void changeCmEnableState(CheckBox& sender);
  void changeTiEnableState(CheckBox& sender);
  void changePiEnableState(CheckBox& sender);
  void radioButtonF(RadioMatrix& sender);
  void radioButtonFnB(RadioMatrix& sender);
  void tabViewDidSelectTabViewItem();

  [[nodiscard]] const PublishingSettings& state() const { return state_; }

 private:
  [[nodiscard]] ppd_file_t* currentPPD() const;

  // Reads a print setting into `value`; false, with `value` left alone, when the key is absent.
  bool readPrintSetting(const char* key, std::optional<std::string>& value) const;
  bool readPrintSetting(const char* key, std::int64_t& value) const;
  [[nodiscard]] bool isPrintSettingOn(const char* key) const;
  void writePrintSetting(const char* key, const std::optional<std::string>& value);
  void writePrintSetting(const char* key, std::int64_t value);
  [[nodiscard]] bool isTwoSided() const;
  [[nodiscard]] bool isNup() const;
  [[nodiscard]] bool isReversed() const;

  [[nodiscard]] std::vector<std::string> trays() const;
  [[nodiscard]] std::int64_t firstTrayItem(const char* mediaOption) const;

  void removeTransparencyTab();
  void fillPopUp(PopUpButton& popUp, const char* option);

  void restoreCoverMode();
  void restorePageInsert();
  void restorePageNumbers();

  [[nodiscard]] std::int64_t coverValueFromControls() const;
  void applyLayoutRule();
  void showCoverMode(bool twoSided);
  void showCoverModeOff();
  void showPageInsert(bool twoSided);
  void showPageInsertOff();
  void tickCoverSides();
  void tickInsertSides(std::int64_t sides);
  void selectMatrixCell();
  using Boxes = std::initializer_list<std::reference_wrapper<CheckBox>>;
  static void disable(Boxes boxes);
  static void clear(Boxes boxes);

  void saveCoverMode(ppd_file_t* ppd);
  bool savePageInsert(ppd_file_t* ppd);
  bool savePageNumbers();
  void pushChoice(ppd_file_t* ppd, const char* option, const PopUpButton& popUp);
  void runAlert(const char* title, const char* message);

  // The last member goes first: the host is let go while the bundle is still there.
  std::shared_ptr<Bundle> pluginBundle_;
  std::shared_ptr<PDEPluginCallback> pdePluginCallbackObject;
  std::optional<std::string> pdeName;
  ppd_file_t* ppdFile = nullptr;
  ppd_option_t* ppdOption = nullptr;
  std::unique_ptr<PPDInfo> ppdInfo;
  bool initialized = false;
  std::optional<std::vector<std::string>> supportedOptions;
  std::vector<std::string> shownTrays;  // of the last updateConstraints

  PublishingSettings state_;

  bool loadingView = false;
  View* pdeView = nullptr;
  Outlet<TabView> tabView;
  Outlet<CheckBox> CmCheckBox;
  Outlet<RadioMatrix> CmFrontandBackMatrix;
  Outlet<PopUpButton> CmMediaType;
  Outlet<CheckBox> CmFrontOutside;
  Outlet<CheckBox> CmFrontInside;
  Outlet<CheckBox> CmBackOutside;
  Outlet<CheckBox> CmBackInside;
  Outlet<CheckBox> TiCheckBox;
  Outlet<PopUpButton> TiMediaType;
  Outlet<CheckBox> TiPrintOnBack;
  Outlet<CheckBox> PiCheckBox;
  Outlet<PopUpButton> PiMediaType;
  Outlet<CheckBox> PiPrintOnBack;
  Outlet<CheckBox> PiPrintOnFront;
  Outlet<TextField> PiPageNum;
};

}  // namespace publishing
