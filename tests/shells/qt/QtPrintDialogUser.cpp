// SPDX-License-Identifier: Apache-2.0
#include "tests/shells/qt/QtPrintDialogUser.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QPrintEngine>
#include <QTabWidget>

#include <gtest/gtest.h>

#include "Publishing/PublishingFeatures.h"
#include "shells/qt/dialog/QtPrintDialogHost.h"
#include "tests/cups/PrivateCups.h"

namespace publishing {
namespace {

constexpr const char* kPPD = TEST_DATA "/zephrel-ps-9000.ppd";
constexpr auto kCupsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

class Printers final : public testing::Environment {
 public:
  void SetUp() override {
    PrivateCups::instance().addQueue("Office", kPPD);
    PrivateCups::instance().addQueue("Studio", kPPD);
  }
};

const auto* const server = testing::AddGlobalTestEnvironment(new PrivateCups);
const auto* const printers = testing::AddGlobalTestEnvironment(new Printers);

}  // namespace

void waitUntil(const char* what, const std::function<bool()>& condition) {
  QElapsedTimer time;
  for (time.start(); !condition(); QApplication::processEvents(QEventLoop::AllEvents, 10)) {
    ASSERT_LT(time.elapsed(), 10000) << what;
  }
}

QtPrintDialogUser::QtPrintDialogUser() {
  isAttached = QtPrintDialogHost::attach(&*dialog);
  dialog->show();
}

void QtPrintDialogUser::choosePrinter(const char* name) {
  chooseBare(name);
  waitUntil("the panel", [this] { return QtPrintDialogHost::of(&*dialog)->hasPanel(); });
  openTab("Publishing");
}

void QtPrintDialogUser::chooseBare(const char* name) const {
  auto* list = menu("printers");
  list->setCurrentIndex(list->findText(name, Qt::MatchStartsWith));
}

void QtPrintDialogUser::settle() {
  for (int turn = 0; turn < 5; ++turn)
    QApplication::processEvents();
}

void QtPrintDialogUser::openTab(const char* label) {
  auto* tabs = find<QTabWidget>("tabs");
  if (!tabs->isVisible()) press(QDialogButtonBox::ResetRole);
  for (int tab = 0; tab < tabs->count(); ++tab) {
    if (tabs->tabText(tab).startsWith(label)) tabs->setCurrentIndex(tab);
  }
}

void QtPrintDialogUser::press(QDialogButtonBox::ButtonRole role) {
  auto* buttons = dialog->findChild<QDialogButtonBox*>();
  for (QAbstractButton* one : buttons->buttons()) {
    if (buttons->buttonRole(one) == role) return one->click();
  }
}

bool QtPrintDialogUser::print() {
  bool isAccepted = false;
  QObject::connect(&*dialog, &QDialog::accepted, [&] { isAccepted = true; });
  const QPointer<QPrintDialog> alive = &*dialog;
  press(QDialogButtonBox::AcceptRole);
  settle();
  if (alive) QObject::disconnect(&*dialog, &QDialog::accepted, nullptr, nullptr);
  return isAccepted;
}

void QtPrintDialogUser::type(const char* text) {
  auto* field = find<QLineEdit>(outlet::PiPageNum);
  field->selectAll();
  for (const char* key = text; *key != '\0'; ++key)
    pressKey(field, Qt::Key_unknown, QChar(QLatin1Char(*key)));
}

QtPrintDialogUser::Options QtPrintDialogUser::options() {
  const QStringList list = printer.printEngine()->property(kCupsOptions).toStringList();
  Options options;
  for (int place = 0; place + 1 < list.size(); place += 2)
    options[list.at(place).toStdString()] = list.at(place + 1).toStdString();
  return options;
}

}  // namespace publishing
