// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "printing/JobSheets.h"
#include "shells/qt/dialog/QtSheetsView.h"

namespace publishing {

// The panel's tab in a print dialog: either the panel, with the picture of the sheets, its summary
// and some buttons below, or a message that says why there is no panel. Belongs to the dialog; the
// panel's view does not, and leaves the tab before that goes.
class QtDialogPage final : public QWidget {
 public:
  // For these tabs. `name` is the tab's text until there is a panel.
  QtDialogPage(QTabWidget* tabs, const std::string& name);
  ~QtDialogPage() override;

  // What the page asks for: `help` for the Help button, `shown` when the tab comes to the front,
  // `makeButtons` once, for the buttons beside Help, which are the parent's then.
  struct Handlers {
    std::function<void()> help;
    std::function<void()> shown;
    std::function<std::vector<QWidget*>(QWidget* parent)> makeButtons;
  };
  void setHandlers(Handlers handlers) { handlers_ = std::move(handlers); }

  // Takes the panel away and shows the text in its place; with a sign of activity when something is
  // awaited. The tab's label is greyed and has the text as its tooltip.
  void showMessage(const std::string& text, bool waiting);

  // The same for something that is over in a moment: the label stays as it is.
  void showForNow(const std::string& text, bool waiting);

  // Says in the tab's label that the panel can be shown, under that name.
  void offerPanel(const std::string& name);

  // Marks the tab's label: something of the panel is on.
  void mark(bool isOn);

  // Shows the panel's view. The panel must have been offered.
  void showPanel(QWidget* view);

  // Lines above the panel, only while it is shown; empty for none.
  void showNotices(const std::string& text);

  // Both only while the panel is shown.
  void setSummary(const std::string& text);
  void showSheets(const JobSheets& sheets);

  void bringToFront();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void removePanel();
  void writeLabel();
  void addPanelParts();
  QWidget* makeFoot();
  void say(const std::string& text);

  QTabWidget* tabs_;
  QVBoxLayout* layout_;
  QProgressBar* activity_;
  QLabel* message_;
  QString name_;  // in the label
  bool isMarked_ = false;
  Handlers handlers_;
  QLabel* notices_;
  QtSheetsView* sheets_ = nullptr;  // this and the next two are made with the first panel
  QLabel* summary_ = nullptr;
  QWidget* foot_ = nullptr;
  std::string summaryText_;
  QWidget* panel_ = nullptr;  // null while a message is shown
};

}  // namespace publishing
