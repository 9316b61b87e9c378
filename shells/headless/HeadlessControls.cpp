// SPDX-License-Identifier: Apache-2.0
#include "shells/headless/HeadlessControls.h"

#include <algorithm>
#include <iterator>

namespace publishing {
namespace {

// The length of the UTF-8 character that begins at `place`; 1 for a byte that begins none.
std::size_t characterLength(const std::string& text, std::size_t place) {
  std::size_t end = place + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
    ++end;
  return end - place;
}

}  // namespace

void HeadlessCheckBox::click() {
  if (!isEnabled()) return;
  state_ = state_ == 0 ? 1 : 0;
  if (action_) action_(*this);
  tellUserChanged();
}

void HeadlessRadioMatrix::selectCellAtRow(std::int64_t row, std::int64_t column) {
  if (row == 0 && column >= 0 && column < kColumns) {
    selectedColumn_ = column;
  } else {
    deselectAllCells();
  }
}

void HeadlessRadioMatrix::deselectAllCells() {
  if (allowsEmptySelection_) selectedColumn_ = -1;
}

void HeadlessRadioMatrix::click(std::int64_t column) {
  if (!isEnabled() || column < 0 || column >= kColumns) return;
  selectedColumn_ = column;
  if (column < std::ssize(actions_)) actions_[static_cast<std::size_t>(column)](*this);
  tellUserChanged();
}

void HeadlessPopUpButton::removeAllItems() {
  separated_.reset();
  items_.clear();
  selected_ = -1;
}

void HeadlessPopUpButton::addItemsWithTitles(const std::vector<std::string>& titles) {
  for (const std::string& title : titles)
    items_.push_back({title});
}

std::int64_t HeadlessPopUpButton::numberOfItems() const {
  return std::ssize(items_);
}

std::string HeadlessPopUpButton::itemTitleAtIndex(std::int64_t index) const {
  return items_.at(static_cast<std::size_t>(index)).title;
}

bool HeadlessPopUpButton::isItemEnabledAtIndex(std::int64_t index) const {
  return items_.at(static_cast<std::size_t>(index)).enabled;
}

void HeadlessPopUpButton::setItemEnabledAtIndex(std::int64_t index, bool enabled) {
  if (holds(index)) items_[static_cast<std::size_t>(index)].enabled = enabled;
}

void HeadlessPopUpButton::selectItemAtIndex(std::int64_t index) {
  selected_ = holds(index) ? index : -1;
}

std::optional<std::string> HeadlessPopUpButton::titleOfSelectedItem() const {
  if (selected_ < 0) return std::nullopt;
  return itemTitleAtIndex(selected_);
}

void HeadlessPopUpButton::choose(std::int64_t index) {
  if (!isEnabled() || !holds(index) || !isItemEnabledAtIndex(index)) return;
  selected_ = index;
  tellUserChanged();
}

bool HeadlessPopUpButton::holds(std::int64_t index) const {
  return index >= 0 && index < numberOfItems();
}

void HeadlessTextField::type(const std::string& text) {
  if (!isEnabled()) return;
  value_.clear();
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t length = characterLength(text, place);
    const std::string edited = value_ + text.substr(place, length);
    place += length;
    std::string shown = edited;
    if (formatter_ != nullptr && !formatter_->isPartialStringValid(edited, shown)) continue;
    value_ = std::move(shown);
  }
  tellUserChanged();
}

std::int64_t HeadlessTabView::numberOfTabViewItems() const {
  return std::ssize(labels_);
}

std::string HeadlessTabView::tabViewItemLabelAtIndex(std::int64_t index) const {
  return labels_.at(static_cast<std::size_t>(index));
}

void HeadlessTabView::removeTabViewItemAtIndex(std::int64_t index) {
  if (index < 0 || index >= numberOfTabViewItems()) return;
  labels_.erase(labels_.begin() + index);
  if (selected_ > index || selected_ == numberOfTabViewItems()) --selected_;
}

void HeadlessTabView::select(std::int64_t index) {
  if (index == selected_ || index < 0 || index >= numberOfTabViewItems()) return;
  selected_ = index;
  if (didSelect_) didSelect_();
}

}  // namespace publishing
