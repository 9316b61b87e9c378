// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>
#include <string>

namespace publishing {

// The panel's tab in a print dialog: either the panel, with its summary and the Help button below,
// or a message that says why there is no panel. Belongs to the dialog; the panel's view does not,
// and leaves the tab before that goes.
class QtDialogPage final : public QWidget {
 public:
  // For these tabs. `name` is the tab's text until there is a panel.
  QtDialogPage(QTabWidget* tabs, const std::string& name);
  ~QtDialogPage() override;

  // `help` is called for the Help button, `shown` when the tab comes to the front.
  void setHandlers(std::function<void()> help, std::function<void()> shown);

  // Takes the panel away and shows the text in its place; with a sign of activity when something is
  // awaited. The tab's label is greyed and has the text as its tooltip.
  void showMessage(const std::string& text, bool waiting);

  // The same for something that is over in a moment: the label stays as it is.
  void showForNow(const std::string& text, bool waiting);

  // Says in the tab's label that the panel can be shown, under that name.
  void offerPanel(const std::string& name);

  // Shows the panel's view. The panel must have been offered.
  void showPanel(QWidget* view);

  // Lines above the panel, only while it is shown; empty for none.
  void showNotices(const std::string& text);

  // Only while the panel is shown.
  void setSummary(const std::string& text);

  void bringToFront();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void removePanel();
  QWidget* makeFoot();

  QTabWidget* tabs_;
  QVBoxLayout* layout_;
  QProgressBar* activity_;
  QLabel* message_;
  std::function<void()> help_;
  std::function<void()> shown_;
  QLabel* notices_;
  QLabel* summary_ = nullptr;
  QWidget* foot_ = nullptr;   // made with the first panel
  QWidget* panel_ = nullptr;  // null while a message is shown
};

}  // namespace publishing
