// SPDX-License-Identifier: Apache-2.0
#include "tests/support/QtStage.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "shells/qt/QtText.h"
#include "tests/support/WidgetStage.h"

namespace publishing {

std::unique_ptr<PanelStage> makeWidgetStage(AlertSink alerts) {
  return std::make_unique<QtStage>(std::move(alerts));
}

void pressKey(QWidget* widget, int key, const QString& text) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &event);
  }
}

void clickAt(QWidget* widget, QPoint place) {
  const QPointF global = widget->mapToGlobal(place);
  QMouseEvent press(QEvent::MouseButtonPress, place, global, Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, place, global, Qt::LeftButton, Qt::NoButton,
                      Qt::NoModifier);
  QApplication::sendEvent(widget, &press);
  QApplication::sendEvent(widget, &release);
}

void pickItem(QComboBox* menu, int index) {
  int row = 0;
  const auto isLine = [&] {
    return menu->itemData(row, Qt::AccessibleDescriptionRole).toString() == "separator";
  };
  for (int before = index; row < menu->count() && (before > 0 || isLine()); ++row)
    before -= isLine() ? 0 : 1;
  if (!menu->isEnabled() || index < 0 || row >= menu->count()) return;
  menu->showPopup();
  const QModelIndex item = menu->model()->index(row, 0);
  menu->view()->setCurrentIndex(item);  // goes to no disabled item
  if (menu->view()->currentIndex() == item) pressKey(menu->view(), Qt::Key_Return);
  menu->hidePopup();
}

QtAlertWatch::QtAlertWatch(AlertSink alerts) : alerts_(std::move(alerts)) {
  qApp->installEventFilter(this);
}

bool QtAlertWatch::eventFilter(QObject* object, QEvent* event) {
  auto* box = qobject_cast<QMessageBox*>(object);
  if (box != nullptr && event->type() == QEvent::Show) {
    QTimer::singleShot(0, box, [this, box] { answer(*box); });
  }
  return false;
}

void QtAlertWatch::answer(QMessageBox& box) {
  QAbstractButton* chosen = box.defaultButton();
  for (QAbstractButton* button : box.buttons()) {
    if (next_ && box.buttonRole(button) == *next_) chosen = button;
  }
  next_.reset();
  alerts_(box.text().toStdString(), box.informativeText().toStdString(),
          withoutMnemonic(chosen->text()).toStdString());
  chosen->click();
}

QtStage::QtStage(AlertSink alerts)
    : alerts_(std::move(alerts)), bundle_(std::make_shared<QtBundle>("")) {
  new QVBoxLayout(&window_);
}

QtStage::~QtStage() {
  leaveWindow();
}

void QtStage::leaveWindow() {
  if (inWindow_ != nullptr) inWindow_->setParent(nullptr);
}

QtInterface* QtStage::shown() {
  QtInterface* interface = bundle_->interface();
  if (interface == nullptr || interface->view()->widget() == inWindow_) return interface;
  leaveWindow();
  inWindow_ = interface->view()->widget();
  window_.layout()->addWidget(inWindow_);
  inWindow_->show();
  window_.show();
  QApplication::processEvents();
  return interface;
}

void QtStage::click(const std::string& checkBox) {
  auto* interface = shown();
  if (interface == nullptr) return;
  qobject_cast<QAbstractButton*>(interface->checkBox(checkBox)->widget())->click();
}

void QtStage::clickRadioCell(std::int64_t column) {
  auto* interface = shown();
  if (interface == nullptr) return;
  const auto cells =
      interface->radioMatrix("CmFrontandBackMatrix")->widget()->findChildren<QRadioButton*>();
  if (column >= 0 && column < cells.size()) cells.at(static_cast<int>(column))->click();
}

void QtStage::choose(const std::string& popUp, std::int64_t index) {
  auto* interface = shown();
  if (interface == nullptr) return;
  pickItem(qobject_cast<QComboBox*>(interface->popUpButton(popUp)->widget()),
           static_cast<int>(index));
}

void QtStage::type(const std::string& text) {
  auto* interface = shown();
  if (interface == nullptr) return;
  auto* field = qobject_cast<QLineEdit*>(interface->textField("PiPageNum")->widget());
  field->selectAll();
  pressKey(field, Qt::Key_Backspace);
  for (const char32_t character : shownText(text).toUcs4()) {
    pressKey(field, Qt::Key_unknown, QString::fromUcs4(&character, 1));
  }
}

void QtStage::selectTab(std::int64_t index) {
  auto* interface = shown();
  if (interface == nullptr) return;
  QTabBar* bar = interface->tabView("tabView")->widget()->tabBar();
  if (index >= 0 && index < bar->count()) {
    clickAt(bar, bar->tabRect(static_cast<int>(index)).center());
  }
}

}  // namespace publishing
