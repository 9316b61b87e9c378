// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QComboBox>
#include <QMessageBox>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>

#include "shells/qt/QtBundle.h"
#include "tests/support/PanelStage.h"

namespace publishing {

// Presses and releases a key that makes this text, or the key of that code.
void pressKey(QWidget* widget, int key, const QString& text = {});

// Clicks with the mouse at the place in the widget.
void clickAt(QWidget* widget, QPoint place);

// Opens the menu and picks the item with the keyboard; nothing happens when it cannot be picked.
void pickItem(QComboBox* menu, int item);

// Dismisses each message box with its default button as soon as it is shown.
class QtAlertWatch final : public QObject {
 public:
  explicit QtAlertWatch(AlertSink alerts);

  // The next box is answered with its first button of this role instead.
  void answerNext(QMessageBox::ButtonRole role) { next_ = role; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void answer(QMessageBox& box);

  AlertSink alerts_;
  std::optional<QMessageBox::ButtonRole> next_;
};

// A panel script's stage on Qt's widgets: the panel's view stands in a window, and gestures are
// what Qt makes of a user's clicks and keys.
class QtStage final : public PanelStage {
 public:
  explicit QtStage(AlertSink alerts);
  QtStage(const QtStage&) = delete;
  QtStage& operator=(const QtStage&) = delete;
  ~QtStage() override;

  [[nodiscard]] std::shared_ptr<HostBundle> bundle() override { return bundle_; }

  void click(const std::string& checkBox) override;
  void clickRadioCell(std::int64_t column) override;
  void choose(const std::string& popUp, std::int64_t index) override;
  void type(const std::string& text) override;
  void selectTab(std::int64_t index) override;

  // The interface loaded last, shown in the window; null before the first load.
  QtInterface* shown();

 private:
  void leaveWindow();

  QtAlertWatch alerts_;
  std::shared_ptr<QtBundle> bundle_;
  QWidget window_;
  QWidget* inWindow_ = nullptr;
};

}  // namespace publishing
