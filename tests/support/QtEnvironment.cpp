// SPDX-License-Identifier: Apache-2.0
// What every test program on Qt's widgets needs: the application, and each warning of Qt's a
// failure of the test in which it appears.
#include <QApplication>
#include <memory>

#include <gtest/gtest.h>

namespace publishing {
namespace {

// What the platform without a display cannot do, and what a machine without a session lacks.
bool isAboutTheMachine(const QString& text) {
  return text.startsWith("This plugin does not support") || text.contains("XDG_RUNTIME_DIR");
}

void failOnWarnings(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtDebugMsg && type != QtInfoMsg && !isAboutTheMachine(text)) {
    ADD_FAILURE() << "Qt complains: " << text.toStdString();
  }
}

class QtEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    qInstallMessageHandler(failOnWarnings);
    application_ = std::make_unique<QApplication>(count_, arguments_);
  }
  void TearDown() override { application_.reset(); }

 private:
  char name_[8] = "qt-test";
  char* arguments_[2] = {name_, nullptr};
  int count_ = 1;
  std::unique_ptr<QApplication> application_;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
}  // namespace publishing
