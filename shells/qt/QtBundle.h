// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "shells/HostBundle.h"
#include "shells/qt/QtAlertPanel.h"
#include "shells/qt/QtInterface.h"

namespace publishing {

// The plug-in's bundle for Qt programs. Texts come from the gettext catalogue "publishing"; the
// interface description is compiled in; the help book is a folder of HTML pages that the desktop's
// viewer shows, without a network.
class QtBundle final : public HostBundle {
 public:
  // `path` is the folder that holds the help book "help". There must be a QApplication.
  explicit QtBundle(std::string path) : path_(std::move(path)) {}

  [[nodiscard]] std::string localizedString(const std::string& key) const override;
  [[nodiscard]] std::string path() const override { return path_; }
  bool loadInterface(const std::string& name, InterfaceOwner& owner) override;

  // Finds the start page in the user's language, else in English; false when there is none.
  bool registerHelpBook() override;

  // 0 when a viewer was started, kNoHelpBook or kNoHelpViewer when not.
  std::int32_t gotoHelpPage(const std::string& bookName) override;

  [[nodiscard]] AlertPanel& alertPanel() override { return alertPanel_; }
  void setUserChanged(UserChanged changed) override { changed_ = std::move(changed); }
  void setTooltip(std::string_view outlet, const std::string& text) override;
  void separateItem(std::string_view outlet, std::int64_t index) override;
  void setAlertDetail(const std::string& detail) override { alertPanel_.setDetail(detail); }
  void revealText(std::string_view outlet, std::size_t first, std::size_t length) override;

  // The interface loaded last; null before the first load.
  [[nodiscard]] QtInterface* interface() const;

  static constexpr std::int32_t kNoHelpBook = -1;
  static constexpr std::int32_t kNoHelpViewer = -2;

 private:
  std::string path_;
  std::string helpPage_;
  QtAlertPanel alertPanel_;
  UserChanged changed_;
  std::vector<std::unique_ptr<QtInterface>> interfaces_;
};

}  // namespace publishing
