// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Publishing/platform/AlertPanel.h"
#include "shells/qt/QtControls.h"

class QMessageBox;

namespace publishing {

// Alerts as modal message boxes above the window that holds the panel's view.
class QtAlertPanel final : public AlertPanel {
 public:
  // The view whose window the alerts belong to; null, as at first, for none.
  void setView(const QtView* view) { view_ = view; }

  // What is shown below the messages of alerts from now on; empty for nothing.
  void setDetail(const std::string& detail) { detail_ = detail; }

  void runAlertPanel(const std::string& title, const std::string& message,
                     const std::string& defaultButton) override;

 private:
  const QtView* view_ = nullptr;
  std::string detail_;
};

// A message box with texts of ours, shown as they stand. Belongs to the parent, which may be
// destroyed while the box is open, and the box with it.
QMessageBox* makeMessageBox(QWidget* parent, const std::string& title, const std::string& text);

}  // namespace publishing
