// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gtk/gtkunixprint.h>

#include "shells/gtk/GObjectPtr.h"
#include "tests/support/AlertWatch.h"

namespace publishing {

// A program with a print dialog that has the panel, and its user.
class PrintDialogUser {
 public:
  // `settings`, if any, are what the program gives to the dialog from its last job.
  explicit PrintDialogUser(GtkPrintSettings* settings = nullptr);
  PrintDialogUser(const PrintDialogUser&) = delete;
  PrintDialogUser& operator=(const PrintDialogUser&) = delete;
  ~PrintDialogUser();

  // Chooses a printer in the list, then looks at the panel's tab until it says what there is.
  void choosePrinter(const std::string& name);

  // The same without a look at the tab; waits until its label is no longer greyed.
  void choosePrinterOnly(const std::string& name);

  // Only until GTK has it selected; the panel's host has just begun to ask it.
  void selectPrinter(const std::string& name);

  // Brings one of the dialog's tabs to the front.
  void openTab(const std::string& label);

  // Brings one of the panel's own tabs to the front.
  void openPanelTab(int index);

  // Gestures on the panel's controls, by outlet; nothing happens when the control is insensitive.
  void click(const char* checkBox);
  void pick(const char* popUp, int index);
  void type(const char* text);

  // Opens the menu of presets and activates the item with this label, or the one below it in its
  // submenu. Answers the labels of the menu's items.
  std::vector<std::string> choosePreset(const char* label, const char* below = nullptr);

  // Changes an option as the dialog's own tabs do.
  void setDialogOption(const char* name, const char* choice);
  void setReverse(bool reverse);

  // Presses Print. True when the program was told, false when the dialog stayed open.
  bool print();

  // What the dialog says of the job: settings by name.
  [[nodiscard]] std::map<std::string, std::string> settings() const;
  [[nodiscard]] std::string setting(const std::string& name) const;

  // The settings of the last job, as the program keeps them.
  [[nodiscard]] GtkPrintSettings* lastJob() const { return lastJob_.get(); }

  [[nodiscard]] bool isTicked(const char* checkBox) const;
  [[nodiscard]] bool isSensitive(const char* control) const;
  [[nodiscard]] int picked(const char* popUp) const;
  [[nodiscard]] std::string text(const char* entry) const;
  [[nodiscard]] std::string tooltip(const char* control) const;

  // The panel's tab: its label, whether that is greyed, and its tooltip.
  [[nodiscard]] GtkWidget* tabLabel() const;

  [[nodiscard]] std::string selection(const char* entry) const;
  [[nodiscard]] bool hasFocus(const char* control) const;

  // Which of the panel's own tabs is in front.
  [[nodiscard]] int frontPanelTab() const;

  // The label that is in front of all tabs.
  [[nodiscard]] std::string frontTab() const;

  // Whether any label of the panel's tab that can be seen has this text.
  [[nodiscard]] bool shows(const std::string& text) const;

  // The same for any label of the dialog.
  [[nodiscard]] bool showsAnywhere(const std::string& text) const;

  [[nodiscard]] std::string buttonLabel(const char* button) const;

  // Whether the panel itself is in its tab.
  [[nodiscard]] bool hasPanel() const { return find("CmCheckBox") != nullptr; }

  [[nodiscard]] GtkWidget* dialog() const { return dialog_.get(); }

  struct Alert {
    std::string title;
    std::string message;
  };
  std::vector<Alert> alerts;
  AlertWatch watch;

  // Runs the toolkit until the condition holds; fails the test after some seconds.
  static void waitUntil(const char* what, const std::function<bool()>& condition);

 private:
  [[nodiscard]] GtkWidget* find(const char* id) const;
  [[nodiscard]] GtkNotebook* tabs() const;
  [[nodiscard]] GtkWidget* page() const;

  GObjectPtr<GtkWidget> dialog_;
  GObjectPtr<GtkPrintSettings> lastJob_;
  int responses_ = 0;
};

}  // namespace publishing
