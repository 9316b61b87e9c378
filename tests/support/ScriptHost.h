// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <cups/ppd.h>

#include "Publishing/platform/PDEPluginCallback.h"
#include "tests/support/HeadlessPrintSettings.h"

namespace publishing {

// A print dialog as far as a panel sees it: settings, a PPD, and an ear for pushed choices, which
// it neither marks nor stores.
class ScriptHost final : public PDEPluginCallback {
 public:
  using Push = std::function<void(const std::string& option, const std::string& choice)>;

  explicit ScriptHost(Push push) : push_(std::move(push)) {}

  [[nodiscard]] HeadlessPrintSettings& printSettings() override { return settings_; }
  [[nodiscard]] ppd_file_t* ppdFile() override { return ppd_.get(); }
  [[nodiscard]] PMPrintSession printSession() override { return nullptr; }
  bool willChangePPDOptionKeyValue(const std::string& option, const std::string& choice) override {
    push_(option, choice);
    return true;
  }

  // Opens a PPD and marks its defaults; false, with the present PPD kept, when it cannot be opened.
  bool openPPD(const std::string& path);
  void closePPD() { ppd_.reset(); }

  // Marks a choice in the PPD; does nothing without one.
  void mark(const std::string& option, const std::string& choice);

 private:
  struct Close {
    void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
  };

  HeadlessPrintSettings settings_;
  std::unique_ptr<ppd_file_t, Close> ppd_;
  Push push_;
};

}  // namespace publishing
