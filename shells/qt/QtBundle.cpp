// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtBundle.h"

#include <QDesktopServices>
#include <QUrl>

#include "shells/qt/InterfaceText.h"

namespace publishing {

std::unique_ptr<QtInterface> QtBundle::makeInterface(const std::string& name) {
  return name == kInterfaceName ? QtInterface::make(kInterfaceText) : nullptr;
}

bool QtBundle::isShown(const std::string& file, const std::string& part) {
  QUrl page = QUrl::fromLocalFile(QString::fromStdString(file));
  if (!part.empty()) page.setFragment(QString::fromStdString(part.substr(1)));
  return QDesktopServices::openUrl(page);
}

}  // namespace publishing
