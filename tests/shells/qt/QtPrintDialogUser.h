// SPDX-License-Identifier: Apache-2.0
// Qt's own print dialog against a real print server, with a user.
#pragma once

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/QtStage.h"

namespace publishing {

void waitUntil(const char* what, const std::function<bool()>& condition);

// A program with a print dialog, and its user. There is a print server with the queues Office and
// Studio.
class QtPrintDialogUser {
 public:
  using Options = std::map<std::string, std::string>;

  QtPrintDialogUser();

  template <class Widget>
  Widget* find(const char* name) const {
    return dialog->findChild<Widget*>(name);
  }
  QAbstractButton* button(const char* name) const { return find<QAbstractButton>(name); }
  QComboBox* menu(const char* name) const { return find<QComboBox>(name); }
  [[nodiscard]] bool isTicked(const char* box) const { return button(box)->isChecked(); }

  // Chooses a printer that has the panel and looks at it.
  void choosePrinter(const char* name);
  void chooseBare(const char* name) const;

  // Lets Qt do what is waiting, timers that are due among it.
  static void settle();

  // Unfolds the tabs first. A mark in the label does not matter.
  void openTab(const char* label);

  void press(QDialogButtonBox::ButtonRole role);

  // Presses Print; whether the program was told.
  bool print();

  // Types a list of pages in place of what is there.
  void type(const char* text);

  // The options that the printer sends with its jobs.
  [[nodiscard]] Options options();

  bool isAttached = false;
  QPrinter printer;
  std::unique_ptr<QPrintDialog> dialog = std::make_unique<QPrintDialog>(&printer);
  std::vector<std::string> alerts;
  QtAlertWatch watch{[this](const std::string& title, const std::string& message,
                            const std::string&) { alerts.push_back(title + "|" + message); }};
};

}  // namespace publishing
