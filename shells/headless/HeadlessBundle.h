// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shells/HostBundle.h"
#include "shells/headless/HeadlessInterface.h"

namespace publishing {

// The plug-in's bundle for programs without a display. Texts come from the program's gettext
// catalogue "publishing"; alerts go to the function given; there is no help viewer.
class HeadlessBundle final : public HostBundle, private AlertPanel {
 public:
  using Alert = std::function<void(const std::string& title, const std::string& message,
                                   const std::string& defaultButton)>;

  // `alert` is called for each alert and returns when the user has dismissed it.
  explicit HeadlessBundle(Alert alert) : alert_(std::move(alert)) {}

  [[nodiscard]] std::string localizedString(const std::string& key) const override;
  [[nodiscard]] std::string path() const override { return {}; }
  bool loadInterface(const std::string& name, InterfaceOwner& owner) override;
  bool registerHelpBook() override { return false; }
  std::int32_t gotoHelpPage(const std::string& /*bookName*/) override { return kNoHelpViewer; }
  [[nodiscard]] AlertPanel& alertPanel() override { return *this; }
  void setUserChanged(UserChanged changed) override { changed_ = std::move(changed); }
  void setTooltip(std::string_view outlet, const std::string& text) override;
  void setNote(std::string_view outlet, const FieldNote& note) override;
  void separateItem(std::string_view outlet, std::int64_t index) override;
  void setAlertDetail(const std::string& detail) override { alertDetail_ = detail; }
  void revealText(std::string_view outlet, std::size_t first, std::size_t length) override;

  // The interface loaded last, for the user's gestures; null before the first load.
  [[nodiscard]] HeadlessInterface* interface() const;

 private:
  static constexpr std::int32_t kNoHelpViewer = -1;

  void runAlertPanel(const std::string& title, const std::string& message,
                     const std::string& defaultButton) override;

  Alert alert_;
  std::string alertDetail_;
  UserChanged changed_;
  std::vector<std::unique_ptr<HeadlessInterface>> interfaces_;
};

}  // namespace publishing
