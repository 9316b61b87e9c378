// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "Publishing/PublishingFeatures.h"
#include "printing/JobSheets.h"
#include "shells/HostBundle.h"
#include "shells/PageListFault.h"
#include "shells/PageListWriting.h"
#include "shells/PanelControls.h"

namespace publishing {

// The field of the page list as its user sees it: what is typed or pasted is written as a page
// list, what cannot be one is refused with a word, and what the field holds is judged at each
// change.
class PageListField {
 public:
  // Both must outlive this object.
  PageListField(HostBundle& bundle, const PanelControls& controls)
      : bundle_(bundle), controls_(controls) {}
  PageListField(const PageListField&) = delete;
  PageListField& operator=(const PageListField&) = delete;
  ~PageListField();

  // To be called once, when the panel has made its view.
  void takeOver();

  // To be called after each gesture of the user, on whatever control.
  void noteGesture();

  // Says what there is to say of the list. `againstUse`: why nobody can type now; empty while one
  // can.
  void show(const PageListRules& rules, const JobSheets& sheets, const std::string& againstUse);

 private:
  [[nodiscard]] std::string list() const {
    return controls_.textField(outlet::PiPageNum).stringValue().value_or("");
  }

  void sayRefused(const std::string& characters);
  void say(const FieldNote& note, const std::string& againstUse);

  HostBundle& bundle_;
  const PanelControls& controls_;
  std::string known_;                  // the list at the last look
  std::optional<std::size_t> edited_;  // where the user edits it, as long as they do nothing else
  bool isFaulty_ = false;              // at the last look
  std::string refusal_;                // what the user should still read of one; empty for nothing
  std::shared_ptr<PageListWriting> writing_;
};

}  // namespace publishing
