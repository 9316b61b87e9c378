// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtk/gtk.h>

#include "printing/JobSheets.h"
#include "shells/gtk/SignalHandlers.h"
#include "shells/gtk/dialog/SheetsView.h"

namespace publishing {

// The panel's tab in a print dialog: either the panel, with its summary and the Help button below,
// or a message that says why there is no panel. Nothing in it is made or changed while nobody looks
// at it, because each change would have the whole dialog laid out anew.
class DialogPage {
 public:
  // `name` is the tab's text until there is a panel, `help` is called for the Help button,
  // `makeButtons` once, for those beside it.
  DialogPage(const std::string& name, std::function<void()> help,
             std::function<std::vector<GtkWidget*>()> makeButtons);

  // The tab's content and its label, both to be given to the dialog.
  [[nodiscard]] GtkWidget* content() const { return content_.get(); }
  [[nodiscard]] GtkWidget* label() const { return label_.get(); }

  // Takes the panel away and shows the text in its place; with a spinner when something is awaited.
  // The tab's label is greyed and has the text as its tooltip.
  void showMessage(const std::string& text, bool waiting);

  // The same for something that is over in a moment: the label stays as it is.
  void showForNow(const std::string& text, bool waiting);

  // Says in the tab's label that the panel can be shown, under that name.
  void offerPanel(const std::string& name);

  // Marks the tab's label: something of the panel is on.
  void mark(bool isOn);

  // Shows the panel's view. The panel must have been offered.
  void showPanel(GtkWidget* view);

  // Lines above the panel, only while it is shown; empty for none.
  void showNotices(const std::string& text);

  // Whether the user looks at the tab.
  [[nodiscard]] bool isInFront() const { return gtk_widget_get_mapped(content()) != 0; }

  // Both only while the panel is shown.
  void setSummary(const std::string& text);
  void showSheets(const JobSheets& sheets);

 private:
  void writeLabel();
  void removePanel();
  void drawMessage();
  void spin(bool spins);
  void drawPanel();
  void addMessage();
  void addPanel();
  GtkWidget* makeFoot();
  void say(const std::string& text);
  void addNotices();

  GObjectPtr<GtkWidget> content_;
  GObjectPtr<GtkWidget> label_;
  std::string name_;  // in the label
  bool isMarked_ = false;
  std::string text_;  // of the message
  bool isWaiting_ = false;
  GtkWidget* spinner_ = nullptr;  // this and the next ones null until they are needed
  GtkWidget* message_ = nullptr;
  GtkWidget* panelBox_ = nullptr;
  GtkWidget* panel_ = nullptr;  // null while a message is shown
  std::unique_ptr<SheetsView> sheets_;
  GtkWidget* notices_ = nullptr;  // the label
  GtkWidget* noticeBar_ = nullptr;
  GtkWidget* summary_ = nullptr;
  std::string summaryText_;
  std::function<void()> help_;
  std::function<std::vector<GtkWidget*>()> makeButtons_;
  SignalHandlers handlers_;
};

}  // namespace publishing
