// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "shells/WidgetBundle.h"
#include "shells/gtk/GtkAlertPanel.h"
#include "shells/gtk/GtkInterface.h"

namespace publishing {

// The plug-in's bundle for GTK programs. The user interface must be up (gtk_init).
class GtkBundle final : public WidgetBundle<GtkInterface, GtkAlertPanel> {
 public:
  using WidgetBundle::WidgetBundle;

 private:
  std::unique_ptr<GtkInterface> makeInterface(const std::string& name) override;

  // In the desktop's web browser; without one, in what opens such files otherwise.
  bool isShown(const std::string& file, const std::string& part) override;
};

}  // namespace publishing
