// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "shells/headless/HeadlessBundle.h"
#include "tests/support/PanelStage.h"

namespace publishing {

// A panel script's stage on the headless controls.
class HeadlessStage final : public PanelStage {
 public:
  explicit HeadlessStage(AlertSink alerts)
      : bundle_(std::make_shared<HeadlessBundle>(std::move(alerts))) {}

  [[nodiscard]] std::shared_ptr<HostBundle> bundle() override { return bundle_; }

  void click(const std::string& checkBox) override {
    if (auto* interface = bundle_->interface()) interface->checkBox(checkBox)->click();
  }
  void clickRadioCell(std::int64_t column) override {
    if (auto* interface = bundle_->interface()) {
      interface->radioMatrix("CmFrontandBackMatrix")->click(column);
    }
  }
  void choose(const std::string& popUp, std::int64_t index) override {
    if (auto* interface = bundle_->interface()) interface->popUpButton(popUp)->choose(index);
  }
  void type(const std::string& text) override {
    if (auto* interface = bundle_->interface()) interface->textField("PiPageNum")->type(text);
  }
  void selectTab(std::int64_t index) override {
    if (auto* interface = bundle_->interface()) interface->tabView().select(index);
  }

 private:
  std::shared_ptr<HeadlessBundle> bundle_;
};

}  // namespace publishing
