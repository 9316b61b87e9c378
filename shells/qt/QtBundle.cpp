// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtBundle.h"

#include <QDesktopServices>
#include <QUrl>
#include <utility>

#include "Publishing/PublishingFeatures.h"
#include "base/Translation.h"
#include "shells/HelpBook.h"
#include "shells/qt/InterfaceText.h"
#include "shells/qt/QtText.h"

namespace publishing {

std::string QtBundle::localizedString(const std::string& key) const {
  return translated(key.c_str());
}

bool QtBundle::loadInterface(const std::string& name, InterfaceOwner& owner) {
  if (name != kInterfaceName) return false;
  auto loaded = QtInterface::make(kInterfaceText);
  if (loaded == nullptr || !loaded->bind(owner)) return false;
  loaded->setUserChanged(changed_);
  interfaces_.push_back(std::move(loaded));
  alertPanel_.setView(interface()->view());
  owner.awakeFromNib();
  return true;
}

void QtBundle::setTooltip(std::string_view outlet, const std::string& text) {
  if (interface() != nullptr) interface()->setTooltip(outlet, text);
}

void QtBundle::separateItem(std::string_view outlet, std::int64_t index) {
  QtPopUpButton* menu = interface() != nullptr ? interface()->popUpButton(outlet) : nullptr;
  if (menu != nullptr) menu->separateItem(index);
}

void QtBundle::revealText(std::string_view outlet, std::size_t first, std::size_t length) {
  if (interface() != nullptr) interface()->revealText(outlet, first, length);
}

bool QtBundle::registerHelpBook() {
  helpPage_ = helpStartPage(path_);
  return !helpPage_.empty();
}

std::int32_t QtBundle::gotoHelpPage(const std::string& bookName) {
  if (bookName != kHelpBook || helpPage_.empty()) return kNoHelpBook;
  QUrl page = QUrl::fromLocalFile(QString::fromStdString(helpPage_));
  QtTabView* tabs = interface() != nullptr ? interface()->tabView(outlet::tabView) : nullptr;
  const std::string part =
      tabs != nullptr ? helpPartOfTab(tabs->widget()->currentIndex()) : std::string();
  if (!part.empty()) page.setFragment(QString::fromStdString(part.substr(1)));
  return QDesktopServices::openUrl(page) ? 0 : kNoHelpViewer;
}

QtInterface* QtBundle::interface() const {
  return interfaces_.empty() ? nullptr : interfaces_.back().get();
}

}  // namespace publishing
