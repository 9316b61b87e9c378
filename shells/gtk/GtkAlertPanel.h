// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Publishing/platform/AlertPanel.h"
#include "shells/gtk/GtkControls.h"

namespace publishing {

// Alerts as modal message dialogs above the window that holds the panel's view.
class GtkAlertPanel final : public AlertPanel {
 public:
  // The view whose window the alerts belong to; null, as at first, for none.
  void setView(const GtkView* view) { view_ = view; }

  // What is shown below the messages of alerts from now on; empty for nothing.
  void setDetail(const std::string& detail) { detail_ = detail; }

  void runAlertPanel(const std::string& title, const std::string& message,
                     const std::string& defaultButton) override;

 private:
  const GtkView* view_ = nullptr;
  std::string detail_;
};

}  // namespace publishing
