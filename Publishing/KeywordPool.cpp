#include "Publishing/KeywordPool.h"

#include <algorithm>
#include <cstring>

namespace publishing {
namespace {

constexpr std::size_t kFewestSlots = 64;

std::uint64_t mixed(std::uint64_t bits) {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
  bits = (bits ^ (bits >> 32)) * kSpread;
  return bits ^ (bits >> 32);
}

// Eight bytes a step, the last step reaching back over bytes already seen: keywords are short, and
// looking them up is most of what a load does.
std::uint64_t hashOf(std::string_view keyword) {
  std::uint64_t hash = keyword.size();
  std::uint64_t word = 0;
  if (keyword.size() < sizeof(word)) {
    for (const char byte : keyword)
      word = word << 8 | static_cast<unsigned char>(byte);
    return mixed(hash ^ word);
  }
  for (std::size_t next = 0; next + sizeof(word) < keyword.size(); next += sizeof(word)) {
    std::memcpy(&word, keyword.data() + next, sizeof(word));
    hash = mixed(hash ^ word);
  }
  std::memcpy(&word, keyword.data() + keyword.size() - sizeof(word), sizeof(word));
  return mixed(hash ^ word);
}

std::uint32_t hashOf(std::string_view first, std::string_view second) {
  return static_cast<std::uint32_t>(hashOf(first) + 3 * hashOf(second));
}

}  // namespace

KeywordPool::Id KeywordPool::add(std::string_view first, std::string_view second) {
  if (4 * (ends_.size() + 1) > 3 * slots_.size()) makeSlots(2 * slots_.size());
  const std::uint32_t hash = hashOf(first, second);
  Id& slot = slots_[slotOf(first, second, hash)];
  if (slot == kNone) {
    slot = size();
    text_.append(first).push_back('\0');
    text_.append(second);
    ends_.push_back(static_cast<std::uint32_t>(text_.size()));
    hashes_.push_back(hash);
  }
  return slot;
}

KeywordPool::Id KeywordPool::find(std::string_view first, std::string_view second) const {
  return slots_.empty() ? kNone : slots_[slotOf(first, second, hashOf(first, second))];
}

std::string_view KeywordPool::first(Id id) const {
  const std::string_view text = textOf(id);
  return text.substr(0, text.find('\0'));
}

std::string_view KeywordPool::second(Id id) const {
  const std::string_view text = textOf(id);
  return text.substr(text.find('\0') + 1);
}

void KeywordPool::shrink() {
  text_.shrink_to_fit();
  ends_.shrink_to_fit();
  hashes_.shrink_to_fit();
}

std::string_view KeywordPool::textOf(Id id) const {
  const std::uint32_t begin = id > 0 ? ends_[id - 1] : 0;
  return {text_.data() + begin, ends_[id] - begin};
}

bool KeywordPool::holds(Id id, std::string_view first, std::string_view second) const {
  const std::string_view text = textOf(id);
  return text.size() == first.size() + 1 + second.size() && text.starts_with(first) &&
         text[first.size()] == '\0' && text.ends_with(second);
}

// The slot that holds the keyword or pair, or the free one where it belongs.
std::size_t KeywordPool::slotOf(std::string_view first, std::string_view second,
                                std::uint32_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  while (slots_[slot] != kNone &&
         (hashes_[slots_[slot]] != hash || !holds(slots_[slot], first, second))) {
    slot = (slot + 1) & mask;
  }
  return slot;
}

void KeywordPool::makeSlots(std::size_t count) {
  slots_.assign(std::max(count, kFewestSlots), kNone);
  const std::size_t mask = slots_.size() - 1;
  for (Id id = 0; id < size(); ++id) {
    std::size_t slot = hashes_[id] & mask;
    while (slots_[slot] != kNone)
      slot = (slot + 1) & mask;
    slots_[slot] = id;
  }
}

}  // namespace publishing
