// SPDX-License-Identifier: Apache-2.0
// A panel on headless controls, with a host and a printer that a test can shape.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/PublishingPDE.h"
#include "shells/headless/HeadlessInterface.h"
#include "tests/Publishing/ppd/PPDBuilder.h"
#include "tests/support/HeadlessPrintSettings.h"

namespace publishing::test {

// The print dialog: settings, a PPD that the test opened, and a record of the choices pushed.
class TestHost final : public PDEPluginCallback {
 public:
  using Push = std::pair<std::string, std::string>;

  [[nodiscard]] HeadlessPrintSettings& printSettings() override { return settings; }
  [[nodiscard]] ppd_file_t* ppdFile() override { return ppd; }
  [[nodiscard]] PMPrintSession printSession() override { return nullptr; }
  bool willChangePPDOptionKeyValue(const std::string& option, const std::string& choice) override {
    pushes.emplace_back(option, choice);
    return true;
  }

  HeadlessPrintSettings settings;
  ppd_file_t* ppd = nullptr;
  std::vector<Push> pushes;
};

// A bundle on headless interfaces whose description, texts and help can be changed.
class TestBundle final : public Bundle, private AlertPanel {
 public:
  struct Alert {
    std::string title;
    std::string message;
    std::string button;
    bool operator==(const Alert&) const = default;
  };

  [[nodiscard]] std::string localizedString(const std::string& key) const override;
  [[nodiscard]] std::string path() const override { return {}; }
  bool loadInterface(const std::string& name, InterfaceOwner& owner) override;
  bool registerHelpBook() override;
  std::int32_t gotoHelpPage(const std::string& bookName) override;
  [[nodiscard]] AlertPanel& alertPanel() override { return *this; }

  bool hasDescription = true;
  bool throwsWhenAsked = false;  // for a description, after binding it, or to register the help
  std::vector<std::string> tabLabels = {"Cover Mode", "Transparency Interleaving", "Page Insert"};
  std::map<std::string, std::string> translations;
  std::int32_t helpStatus = 0;

  // What the panel did with the bundle.
  std::vector<std::unique_ptr<HeadlessInterface>> interfaces;
  std::vector<Alert> alerts;
  std::vector<std::string> openedBooks;
  int helpRegistrations = 0;

 private:
  void runAlertPanel(const std::string& title, const std::string& message,
                     const std::string& defaultButton) override {
    alerts.push_back({title, message, defaultButton});
  }
};

// A choice's keyword and the text that users read.
struct Choice {
  const char* keyword;
  const char* text;
};

// The lines of a PickOne option whose choices have texts; the first choice is the default.
std::string mediaLines(const std::string& option, const std::vector<Choice>& choices);

// A printer with two trays, a Duplex and a Resolution option to constrain them, three cover media
// and four media for inserts, the last two of each being the trays; then `more`.
std::string smallPrinter(const std::string& more = "");

// What a page-list alert looks like in English.
TestBundle::Alert pageAlert(const std::string& message);

class PanelTest : public testing::Test {
 protected:
  // The printer's PPD, owned by the test. Before the first call the host has none.
  void usePPD(OpenedPPD ppd);
  void usePPDText(const std::string& lines) { usePPD(openPPDText(lines)); }

  // Replaces the encoding that libcups reports: it says UTF-8 or nothing, older libraries more.
  void setEncoding(const char* encoding);

  // As a host starts a panel: view, restore, show.
  void start();
  void restore() { EXPECT_TRUE(panel.restoreValuesAndReturnError()); }
  void set(const std::map<std::string, std::string>& values);
  void setTwoSided(bool twoSided) { host->settings.setDuplex(twoSided ? 2 : 1); }
  [[nodiscard]] std::optional<std::string> setting(const std::string& key) const {
    return host->settings.getValue(key);
  }
  void mark(const char* option, const char* choice) { ppdMarkOption(ppd.get(), option, choice); }

  // The interface loaded last.
  [[nodiscard]] HeadlessInterface& ui() { return *bundle->interfaces.back(); }
  [[nodiscard]] HeadlessCheckBox& box(const char* name) { return *ui().checkBox(name); }
  [[nodiscard]] HeadlessPopUpButton& popUp(const char* name) { return *ui().popUpButton(name); }
  [[nodiscard]] HeadlessRadioMatrix& matrix() { return *ui().radioMatrix("CmFrontandBackMatrix"); }
  [[nodiscard]] HeadlessTextField& pageField() { return *ui().textField("PiPageNum"); }
  [[nodiscard]] HeadlessTabView& tabs() { return ui().tabView(); }

  [[nodiscard]] std::vector<std::string> titles(const char* popUp);
  // The indexes of the pop-up's disabled items.
  [[nodiscard]] std::vector<std::int64_t> disabledItems(const char* popUp);
  // The names of the enabled, or of the ticked, boxes among the six sides, in the panel's order.
  [[nodiscard]] std::vector<std::string> enabledSides();
  [[nodiscard]] std::vector<std::string> tickedSides();

  // Takes the panel's view away from it, as a host that drops its window does.
  void clearView();

  OpenedPPD ppd;  // outlives the panel, which may look at it
  std::shared_ptr<TestHost> host = std::make_shared<TestHost>();
  std::shared_ptr<TestBundle> bundle = std::make_shared<TestBundle>();
  PublishingPDE panel{host, bundle};
};

}  // namespace publishing::test
