// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "shells/WidgetBundle.h"
#include "shells/qt/QtAlertPanel.h"
#include "shells/qt/QtInterface.h"

namespace publishing {

// The plug-in's bundle for Qt programs. There must be a QApplication.
class QtBundle final : public WidgetBundle<QtInterface, QtAlertPanel> {
 public:
  using WidgetBundle::WidgetBundle;

 private:
  std::unique_ptr<QtInterface> makeInterface(const std::string& name) override;
  bool isShown(const std::string& file, const std::string& part) override;
};

}  // namespace publishing
