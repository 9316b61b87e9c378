// SPDX-License-Identifier: Apache-2.0
// The promises of the platform interfaces, as tests that every shell runs.
//
// A shell's test program links the library shell-conformance and instantiates the suites:
//
//   INSTANTIATE_TEST_SUITE_P(Headless, ShellConformance, testing::Values(Shell{...}));
//   INSTANTIATE_TEST_SUITE_P(JobTicket, PrintSettingsConformance, testing::Values(...));
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Publishing/platform/PrintSettings.h"
#include "tests/shells/conformance/ControlsOwner.h"
#include "tests/support/PanelStage.h"

namespace publishing {

// How to get a shell's bundle with its alerts and the gestures of its user.
struct Shell {
  std::function<std::unique_ptr<PanelStage>(AlertSink alerts)> makeStage;

  // Names a test's parameter, which would be bytes otherwise.
  friend void PrintTo(const Shell& /*shell*/, std::ostream* name) { *name << "shell"; }
};

// The interface description "Publishing", loaded for an owner that only records what happens.
class ShellConformance : public testing::TestWithParam<Shell> {
 protected:
  struct Alert {
    std::string title;
    std::string message;
    std::string button;
    bool operator==(const Alert&) const = default;
  };

  ShellConformance();

  // Loads the description; must be called once before the gestures below.
  void load() { ASSERT_TRUE(bundle().loadInterface("Publishing", owner_)); }

  [[nodiscard]] HostBundle& bundle() { return *stage_->bundle(); }
  [[nodiscard]] PanelStage& user() { return *stage_; }
  [[nodiscard]] ControlsOwner& owner() { return owner_; }
  [[nodiscard]] const std::vector<Alert>& alerts() const { return alerts_; }

  [[nodiscard]] CheckBox& box(const char* name) { return *owner_.checkBoxes.at(name); }
  [[nodiscard]] PopUpButton& popUp(const char* name) { return *owner_.popUps.at(name); }
  [[nodiscard]] RadioMatrix& matrix() { return *owner_.matrix; }
  [[nodiscard]] TextField& pageField() { return *owner_.pageField; }
  [[nodiscard]] TabView& tabs() { return *owner_.tabView; }

  [[nodiscard]] std::vector<std::string> tabLabels();
  [[nodiscard]] std::vector<std::string> itemTitles(PopUpButton& popUp);

 private:
  std::vector<Alert> alerts_;
  ControlsOwner owner_;
  std::unique_ptr<PanelStage> stage_;
};

// How to get print settings of one kind and how to set what only their host can set.
struct PrintSettingsKind {
  std::function<std::unique_ptr<PrintSettings>()> make;
  std::function<void(PrintSettings&, std::int32_t mode)> setDuplex;

  friend void PrintTo(const PrintSettingsKind& /*kind*/, std::ostream* name) { *name << "kind"; }
};

class PrintSettingsConformance : public testing::TestWithParam<PrintSettingsKind> {
 protected:
  [[nodiscard]] PrintSettings& settings() { return *settings_; }
  void setDuplex(std::int32_t mode) { GetParam().setDuplex(*settings_, mode); }

 private:
  std::unique_ptr<PrintSettings> settings_ = GetParam().make();
};

}  // namespace publishing
