// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Publishing/PublishingFeatures.h"
#include "base/Translation.h"
#include "shells/HelpBook.h"
#include "shells/HostBundle.h"

namespace publishing {

// The plug-in's bundle on a toolkit's widgets: what is the same for each toolkit, whose classes
// these are. Texts come from the gettext catalogue "publishing"; the interface description is
// compiled in; the help book is a folder of HTML pages that the desktop's viewer shows, without a
// network.
template <class Interface, class Alerts>
class WidgetBundle : public HostBundle {
 public:
  // `path` is the folder that holds the help book "help".
  explicit WidgetBundle(std::string path) : path_(std::move(path)) {}

  [[nodiscard]] std::string localizedString(const std::string& key) const override {
    return translated(key.c_str());
  }

  [[nodiscard]] std::string path() const override { return path_; }

  bool loadInterface(const std::string& name, InterfaceOwner& owner) override {
    std::unique_ptr<Interface> loaded = makeInterface(name);
    if (loaded == nullptr || !loaded->bind(owner)) return false;
    loaded->setUserChanged(changed_);
    interfaces_.push_back(std::move(loaded));
    alertPanel_.setView(interface()->view());
    owner.awakeFromNib();
    return true;
  }

  // Finds the start page in the user's language, else in English; false when there is none.
  bool registerHelpBook() override {
    helpPage_ = helpStartPage(path_);
    return !helpPage_.empty();
  }

  // Shows the part about the panel's tab in front. 0 when a viewer was started, kNoHelpBook or
  // kNoHelpViewer when not.
  std::int32_t gotoHelpPage(const std::string& bookName) override {
    if (bookName != kHelpBook || helpPage_.empty()) return kNoHelpBook;
    auto* tabs = interface() != nullptr ? interface()->tabView(outlet::tabView) : nullptr;
    const std::string part = tabs != nullptr ? helpPartOfTab(tabs->selectedIndex()) : "";
    return isShown(helpPage_, part) ? 0 : kNoHelpViewer;
  }

  [[nodiscard]] AlertPanel& alertPanel() override { return alertPanel_; }
  void setUserChanged(UserChanged changed) override { changed_ = std::move(changed); }
  void setAlertDetail(const std::string& detail) override { alertPanel_.setDetail(detail); }

  void setTooltip(std::string_view outlet, const std::string& text) override {
    if (interface() != nullptr) interface()->setTooltip(outlet, text);
  }

  void setNote(std::string_view outlet, const FieldNote& note) override {
    if (interface() != nullptr) interface()->setNote(outlet, note);
  }

  void separateItem(std::string_view outlet, std::int64_t index) override {
    auto* menu = interface() != nullptr ? interface()->popUpButton(outlet) : nullptr;
    if (menu != nullptr) menu->separateItem(index);
  }

  void revealText(std::string_view outlet, std::size_t first, std::size_t length) override {
    if (interface() != nullptr) interface()->revealText(outlet, first, length);
  }

  // The interface loaded last; null before the first load.
  [[nodiscard]] Interface* interface() const {
    return interfaces_.empty() ? nullptr : interfaces_.back().get();
  }

  static constexpr std::int32_t kNoHelpBook = -1;
  static constexpr std::int32_t kNoHelpViewer = -2;

 private:
  // The interface of that name; null when there is none, or when it cannot be made.
  virtual std::unique_ptr<Interface> makeInterface(const std::string& name) = 0;

  // Whether a viewer could be started for the file; `part` is the end of its address, such as
  // "#covers", or empty.
  virtual bool isShown(const std::string& file, const std::string& part) = 0;

  std::string path_;
  std::string helpPage_;
  Alerts alertPanel_;
  UserChanged changed_;
  std::vector<std::unique_ptr<Interface>> interfaces_;
};

}  // namespace publishing
