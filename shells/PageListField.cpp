// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListField.h"

#include <utility>

#include "shells/PageListNote.h"

namespace publishing {

void PageListField::noteGesture() {
  const std::string before = std::exchange(known_, list());
  edited_.reset();
  if (known_ != before) edited_ = placeOfEdit(before, known_);
}

void PageListField::show(const PageListRules& rules, const JobSheets& sheets,
                         const std::string& againstUse) {
  if (std::exchange(known_, list()) != known_) edited_.reset();
  const FieldNote note =
      againstUse.empty() ? noteOnPages(known_, rules, sheets, edited_) : hintOnPages(rules, sheets);
  bundle_.setNote(outlet::PiPageNum, note);
  const bool isHint = note.kind == FieldNote::Kind::Hint;
  bundle_.setTooltip(outlet::PiPageNum, isHint ? againstUse : note.text);
}

}  // namespace publishing
