#pragma once

#include <functional>
#include <string>

#include <gtk/gtk.h>

#include "shells/gtk/SignalHandlers.h"

namespace publishing {

// The panel's tab in a print dialog: either the panel, with its summary and the Help button below,
// or a message that says why there is no panel.
class DialogPage {
 public:
  // `name` is the tab's text until there is a panel, `help` is called for the Help button.
  DialogPage(const std::string& name, std::function<void()> help);

  // The tab's content and its label, both to be given to the dialog.
  [[nodiscard]] GtkWidget* content() const { return content_.get(); }
  [[nodiscard]] GtkWidget* label() const { return label_.get(); }

  // Takes the panel away and shows the text in its place; with a spinner when something is awaited.
  // The tab's label is greyed and has the text as its tooltip.
  void showMessage(const std::string& text, bool waiting);

  // Shows the panel's view in a tab of that name.
  void showPanel(GtkWidget* view, const std::string& name);

  void setSummary(const std::string& text);

 private:
  void removePanel();
  void addMessage();
  void addPanel();

  GObjectPtr<GtkWidget> content_;
  GObjectPtr<GtkWidget> label_;
  GtkWidget* spinner_ = nullptr;
  GtkWidget* message_ = nullptr;
  GtkWidget* panelBox_ = nullptr;
  GtkWidget* panel_ = nullptr;  // null while a message is shown
  GtkWidget* summary_ = nullptr;
  std::function<void()> help_;
  SignalHandlers handlers_;
};

}  // namespace publishing
