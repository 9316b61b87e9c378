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

QtDialogPage::QtDialogPage(QTabWidget* tabs, const std::string& name)
    : tabs_(tabs),
      layout_(new QVBoxLayout(this)),
      activity_(new QProgressBar(this)),
      message_(new QLabel(this)),
      notices_(new QLabel(this)) {
  setWindowTitle(shownLabel(name));
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

void QtDialogPage::setHandlers(std::function<void()> help, std::function<void()> shown) {
  help_ = std::move(help);
  shown_ = std::move(shown);
}

QWidget* QtDialogPage::makeFoot() {
  auto* foot = new QWidget(this);
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, 0);
  summary_ = new QLabel(foot);
  summary_->setTextFormat(Qt::PlainText);
  summary_->setForegroundRole(QPalette::PlaceholderText);
  summary_->setWordWrap(true);
  summary_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* help = new QPushButton(withMnemonic(translated("_Help")), foot);
  help->setAutoDefault(false);
  connect(help, &QPushButton::clicked, this, [this] {
    guarded([this] {
      if (help_) help_();
    });
  });
  row->addWidget(summary_, 1);
  row->addWidget(help);
  layout_->addWidget(foot);
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
  if (foot_ != nullptr) foot_->setVisible(false);
  message_->setText(shownText(text));
  message_->setVisible(true);
  activity_->setVisible(waiting);
}

void QtDialogPage::showMessage(const std::string& text, bool waiting) {
  showForNow(text, waiting);
  const int place = tabs_->indexOf(this);
  tabs_->tabBar()->setTabTextColor(place, palette().color(QPalette::Disabled, QPalette::Text));
  tabs_->setTabToolTip(place, message_->text().toHtmlEscaped());
}

void QtDialogPage::offerPanel(const std::string& name) {
  const int place = tabs_->indexOf(this);
  tabs_->setTabText(place, shownLabel(name));
  tabs_->tabBar()->setTabTextColor(place, QColor());
  tabs_->setTabToolTip(place, QString());
}

void QtDialogPage::showPanel(QWidget* view) {
  removePanel();
  if (foot_ == nullptr) foot_ = makeFoot();
  panel_ = view;
  layout_->insertWidget(1, view, 1);
  message_->setVisible(false);
  activity_->setVisible(false);
  view->show();
  foot_->setVisible(true);
}

void QtDialogPage::showNotices(const std::string& text) {
  notices_->setText(shownText(text));
  notices_->setVisible(!text.empty());
}

void QtDialogPage::setSummary(const std::string& text) {
  summary_->setText(shownText(text));
}

void QtDialogPage::bringToFront() {
  tabs_->setCurrentWidget(this);
}

void QtDialogPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  guarded([this] {
    if (shown_) shown_();
  });
}

}  // namespace publishing
