// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "Publishing/platform/Bundle.h"
#include "shells/FieldNote.h"

namespace publishing {

// A shell's bundle as a host needs it: it tells of the user's gestures and explains controls.
class HostBundle : public Bundle {
 public:
  using UserChanged = std::function<void(const std::string& outlet)>;

  // `changed` is called with a control's name after each gesture by which the user changed it, when
  // the panel has dealt with it; never for a change from code. Applies to interfaces that are
  // loaded from now on.
  virtual void setUserChanged(UserChanged changed) = 0;

  // What the control of the interface loaded last says when it is pointed at; empty for nothing.
  // `outlet` is the name of one of its controls.
  virtual void setTooltip(std::string_view outlet, const std::string& text) = 0;

  // What is said below a text field of the interface loaded last; until then it is what the
  // interface description says. Nothing happens for a field that has no room for it.
  virtual void setNote(std::string_view outlet, const FieldNote& note) = 0;

  // Has the pop-up of the interface loaded last show a line above this item, in place of an earlier
  // one. The line is no item: the panel's items keep their indexes. Emptying the pop-up removes it.
  virtual void separateItem(std::string_view outlet, std::int64_t index) = 0;

  // A paragraph of the host's that alerts have below the panel's own message from now on; empty for
  // none.
  virtual void setAlertDetail(const std::string& detail) = 0;

  // Brings the text field of the interface loaded last to the front, for the user to go on with:
  // the keyboard is on it, and `length` of its characters from `first` on are selected.
  virtual void revealText(std::string_view outlet, std::size_t first, std::size_t length) = 0;
};

}  // namespace publishing
