// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>

#include <gtk/gtk.h>

#include "shells/DialogHost.h"
#include "shells/PresetQuestions.h"
#include "shells/gtk/dialog/MenuButton.h"

namespace publishing {

// The button in the panel's tab whose menu has the presets: use one, save the panel's choices as
// one, delete one. Other programs change the presets, too.
class PresetMenu final : private PresetQuestions {
 public:
  // `host` must outlive this object.
  explicit PresetMenu(DialogHost& host) : host_(host) {}
  PresetMenu(const PresetMenu&) = delete;
  PresetMenu& operator=(const PresetMenu&) = delete;

  // Makes the button; to be called once at most.
  GtkWidget* makeButton();

 private:
  MenuButton::Sections items();
  [[nodiscard]] GtkWindow* window() const;
  // True for the answer with that label.
  bool confirms(const std::string& question, const char* label);

  std::optional<std::string> askName() override;
  bool confirmsReplacing(const std::string& name) override;
  bool confirmsDeleting(const std::string& name) override;
  void tell(const std::string& problem) override;

  DialogHost& host_;
  std::unique_ptr<MenuButton> button_;
};

}  // namespace publishing
