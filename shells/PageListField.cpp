// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListField.h"

#include <utility>

#include "shells/PageListNote.h"
#include "shells/RefusalMessage.h"

namespace publishing {

using Kind = FieldNote::Kind;

PageListField::~PageListField() {
  if (writing_ != nullptr) writing_->fallSilent();
}

void PageListField::takeOver() {
  writing_ = std::make_shared<PageListWriting>(
      [this](const std::string& characters) { sayRefused(characters); });
  controls_.textField(outlet::PiPageNum).setFormatter(writing_);
}

void PageListField::noteGesture() {
  const std::string before = std::exchange(known_, list());
  edited_.reset();
  if (known_ != before) edited_ = placeOfEdit(before, known_);
  // A user who types on may not have read it yet.
  if (known_.size() <= before.size()) refusal_.clear();
}

void PageListField::show(const PageListRules& rules, const JobSheets& sheets,
                         const std::string& againstUse) {
  if (std::exchange(known_, list()) != known_) edited_.reset();
  const FieldNote note =
      againstUse.empty() ? noteOnPages(known_, rules, sheets, edited_) : hintOnPages(rules, sheets);
  isFaulty_ = note.kind == Kind::Fault;
  if (isFaulty_ || !againstUse.empty()) refusal_.clear();
  say(refusal_.empty() ? note : FieldNote{Kind::Remark, refusal_}, againstUse);
}

// What was typed is not in the field, so nothing else changes.
void PageListField::sayRefused(const std::string& characters) {
  refusal_ = refusalMessage(characters);
  say({isFaulty_ ? Kind::Fault : Kind::Remark, refusal_}, {});
}

// The tooltip tells those who do not see the note.
void PageListField::say(const FieldNote& note, const std::string& againstUse) {
  bundle_.setNote(outlet::PiPageNum, note);
  bundle_.setTooltip(outlet::PiPageNum, note.kind == Kind::Hint ? againstUse : note.text);
}

}  // namespace publishing
