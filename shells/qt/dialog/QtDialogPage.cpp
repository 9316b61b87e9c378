// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtDialogPage.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTabBar>
#include <utility>

#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/qt/QtText.h"

namespace publishing {
namespace {

constexpr const char* kMark = " ✓";
constexpr int kSummaryLines = 4;

}  // namespace

QtDialogPage::QtDialogPage(QTabWidget* tabs, const std::string& name)
    : tabs_(tabs),
      layout_(new QVBoxLayout(this)),
      activity_(new QProgressBar(this)),
      message_(new QLabel(this)),
      name_(shownLabel(name)),
      notices_(new QLabel(this)) {
  setWindowTitle(name_);
  activity_->setRange(0, 0);
  activity_->setVisible(false);
  message_->setTextFormat(Qt::PlainText);
  message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  message_->setWordWrap(true);
  message_->setAlignment(Qt::AlignCenter);
  notices_->setTextFormat(Qt::PlainText);
  notices_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  notices_->setWordWrap(true);
  notices_->setFrameStyle(QFrame::StyledPanel);
  notices_->setVisible(false);
  layout_->addWidget(notices_);
  layout_->addWidget(message_, 1);
  layout_->addWidget(activity_);
}

QtDialogPage::~QtDialogPage() {
  removePanel();
}

// What comes out in words, in as much room whatever it says, and the buttons.
QWidget* QtDialogPage::makeFoot() {
  auto* foot = new QWidget(this);
  auto* rows = new QVBoxLayout(foot);
  rows->setContentsMargins(0, 0, 0, 0);
  summary_ = new QLabel(foot);
  summary_->setTextFormat(Qt::PlainText);
  summary_->setForegroundRole(QPalette::PlaceholderText);
  summary_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  summary_->setWordWrap(true);
  summary_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  summary_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  summary_->setText(QString(kSummaryLines - 1, QLatin1Char('\n')));
  summary_->setFixedHeight(summary_->sizeHint().height());
  rows->addWidget(summary_);
  auto* help = new QPushButton(withMnemonic(translated("_Help")), foot);
  help->setAutoDefault(false);
  connect(help, &QPushButton::clicked, this, [this] { guarded([this] { handlers_.help(); }); });
  std::vector<QWidget*> buttons = handlers_.makeButtons(foot);
  buttons.push_back(help);
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  for (QWidget* button : buttons)
    row->addWidget(button);
  rows->addLayout(row);
  return foot;
}

void QtDialogPage::removePanel() {
  if (panel_ == nullptr) return;
  panel_->hide();
  panel_->setParent(nullptr);
  panel_ = nullptr;
}

void QtDialogPage::showForNow(const std::string& text, bool waiting) {
  removePanel();
  notices_->setVisible(false);
  if (foot_ != nullptr) {
    sheets_->setVisible(false);
    foot_->setVisible(false);
  }
  message_->setText(shownText(text));
  message_->setVisible(true);
  activity_->setVisible(waiting);
}

void QtDialogPage::showMessage(const std::string& text, bool waiting) {
  showForNow(text, waiting);
  const int place = tabs_->indexOf(this);
  tabs_->tabBar()->setTabTextColor(place, palette().color(QPalette::Disabled, QPalette::Text));
  tabs_->setTabToolTip(place, shownTooltip(text));
}

void QtDialogPage::offerPanel(const std::string& name) {
  const int place = tabs_->indexOf(this);
  name_ = shownLabel(name);
  writeLabel();
  tabs_->tabBar()->setTabTextColor(place, QColor());
  tabs_->setTabToolTip(place, QString());
}

void QtDialogPage::mark(bool isOn) {
  isMarked_ = isOn;
  writeLabel();
}

// The dialog is laid out anew for each new text.
void QtDialogPage::writeLabel() {
  const QString text = isMarked_ ? name_ + QString::fromUtf8(kMark) : name_;
  const int place = tabs_->indexOf(this);
  if (text != tabs_->tabText(place)) tabs_->setTabText(place, text);
}

void QtDialogPage::addPanelParts() {
  sheets_ = new QtSheetsView(
      this, [this](const std::string& words) { say(words.empty() ? summaryText_ : words); });
  layout_->addWidget(sheets_, 1);
  foot_ = makeFoot();
  layout_->addWidget(foot_);
}

void QtDialogPage::showPanel(QWidget* view) {
  removePanel();
  if (foot_ == nullptr) addPanelParts();
  panel_ = view;
  layout_->insertWidget(1, view);
  message_->setVisible(false);
  activity_->setVisible(false);
  view->show();
  sheets_->setVisible(true);
  foot_->setVisible(true);
}

void QtDialogPage::showNotices(const std::string& text) {
  notices_->setText(shownText(text));
  notices_->setVisible(!text.empty());
}

void QtDialogPage::setSummary(const std::string& text) {
  summaryText_ = text;
  say(text);
}

// A tooltip has room for what the lines have not.
void QtDialogPage::say(const std::string& text) {
  summary_->setText(shownText(text));
  summary_->setToolTip(shownTooltip(text));
}

void QtDialogPage::showSheets(const JobSheets& sheets) {
  sheets_->showSheets(sheets);
}

void QtDialogPage::bringToFront() {
  tabs_->setCurrentWidget(this);
}

void QtDialogPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  guarded([this] {
    if (handlers_.shown) handlers_.shown();
  });
}

}  // namespace publishing
