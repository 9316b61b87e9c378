// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "Publishing/PublishingFeatures.h"
#include "printing/JobSheets.h"
#include "shells/HostBundle.h"
#include "shells/PageListFault.h"
#include "shells/PanelControls.h"

namespace publishing {

// The field of the page list as its user sees it: what it holds is judged at each change.
class PageListField {
 public:
  // Both must outlive this object.
  PageListField(HostBundle& bundle, const PanelControls& controls)
      : bundle_(bundle), controls_(controls) {}

  // To be called after each gesture of the user, on whatever control.
  void noteGesture();

  // Says what there is to say of the list. `againstUse`: why nobody can type now; empty while one
  // can.
  void show(const PageListRules& rules, const JobSheets& sheets, const std::string& againstUse);

 private:
  [[nodiscard]] std::string list() const {
    return controls_.textField(outlet::PiPageNum).stringValue().value_or("");
  }

  HostBundle& bundle_;
  const PanelControls& controls_;
  std::string known_;                  // the list at the last look
  std::optional<std::size_t> edited_;  // where the user edits it, as long as they do nothing else
};

}  // namespace publishing
