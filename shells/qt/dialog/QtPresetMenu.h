// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <optional>
#include <string>

#include "shells/DialogHost.h"
#include "shells/PresetQuestions.h"

namespace publishing {

// The button in the panel's tab whose menu has the presets: use one, save the panel's choices as
// one, delete one. The menu is filled anew each time it is opened, because other programs change
// the presets, too.
class QtPresetMenu final : private PresetQuestions {
 public:
  // `host` must outlive this object.
  explicit QtPresetMenu(DialogHost& host) : host_(host) {}
  QtPresetMenu(const QtPresetMenu&) = delete;
  QtPresetMenu& operator=(const QtPresetMenu&) = delete;
  ~QtPresetMenu() override = default;

  // Makes the button, which is the parent's; to be called once at most.
  QWidget* makeButton(QWidget* parent);

 private:
  void fill(QMenu& menu);
  void addItem(QMenu& menu, const QString& label, std::function<void()> chosen) const;

  std::optional<std::string> askName() override;
  bool confirmsReplacing(const std::string& name) override;
  bool confirmsDeleting(const std::string& name) override;
  void tell(const std::string& problem) override;

  DialogHost& host_;
  QPointer<QPushButton> button_;
};

}  // namespace publishing
