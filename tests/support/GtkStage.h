// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "shells/gtk/GtkBundle.h"
#include "tests/support/AlertWatch.h"
#include "tests/support/PanelStage.h"

namespace publishing {

// A panel script's stage on real widgets: the panel's view stands in a window on the display, and
// gestures are what the toolkit makes of a user's clicks and keys. Alerts are dismissed with their
// default button as soon as they are on the display.
class GtkStage final : public PanelStage {
 public:
  explicit GtkStage(AlertSink alerts);
  GtkStage(const GtkStage&) = delete;
  GtkStage& operator=(const GtkStage&) = delete;
  ~GtkStage() override;

  [[nodiscard]] std::shared_ptr<HostBundle> bundle() override { return bundle_; }

  void click(const std::string& checkBox) override;
  void clickRadioCell(std::int64_t column) override;
  void choose(const std::string& popUp, std::int64_t index) override;
  void type(const std::string& text) override;
  void selectTab(std::int64_t index) override;

  // The interface loaded last, shown in the window; null before the first load.
  GtkInterface* shown();

  [[nodiscard]] GtkWindow* window() const { return GTK_WINDOW(window_.get()); }

  // Lets the toolkit do what is waiting.
  static void settle();

 private:
  AlertWatch alerts_;
  std::shared_ptr<GtkBundle> bundle_;
  GObjectPtr<GtkWidget> window_;
  const GtkInterface* inWindow_ = nullptr;
};

}  // namespace publishing
