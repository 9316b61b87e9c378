#include "Publishing/ppd/KeywordPool.h"

#include <algorithm>
#include <bit>

namespace publishing {
namespace {

constexpr std::size_t kFewest = 32;     // keywords to make room for
constexpr std::size_t kUsualSize = 16;  // of a keyword or pair, in bytes

}  // namespace

KeywordPool::Id KeywordPool::add(const Keyword& first, const Keyword& second) {
  if (2 * (entries_.size() + 1) > slots_.size()) reserve(std::max(kFewest, 4 * entries_.size()));
  Id& slot = slots_[slotOf(first, second)];
  if (slot == kNone) {
    slot = size();
    const std::string_view text1 = first.text();
    const std::string_view text2 = second.text();
    entries_.push_back({first.head(), second.head(), static_cast<std::uint32_t>(text_.size()),
                        static_cast<std::uint32_t>(text1.size()),
                        static_cast<std::uint32_t>(text2.size())});
    text_.append(text1).push_back('\0');
    text_.append(text2).push_back('\0');
  }
  return slot;
}

KeywordPool::Id KeywordPool::find(std::string_view first, std::string_view second) const {
  const Id id = find(Keyword(first), Keyword(second));
  const bool whole =
      id != kNone && entries_[id].size1 == first.size() && entries_[id].size2 == second.size();
  return whole ? id : kNone;
}

void KeywordPool::reserve(std::size_t count) {
  count = std::max(count, entries_.size());
  text_.reserve(count * kUsualSize);
  entries_.reserve(count);
  slots_.assign(std::bit_ceil(2 * std::max<std::size_t>(count, 1)), kNone);
  hashShift_ = std::countl_zero(std::uint64_t{slots_.size()}) + 1;
  const std::size_t mask = slots_.size() - 1;
  for (Id id = 0; id < size(); ++id) {
    std::size_t slot = homeOf(Keyword(first(id)), Keyword(second(id)));
    while (slots_[slot] != kNone)
      slot = (slot + 1) & mask;
    slots_[slot] = id;
  }
}

bool KeywordPool::holdsTexts(Id id, const Keyword& first, const Keyword& second) const {
  return first.text() == this->first(id) && second.text() == this->second(id);
}

void KeywordPool::shrink() {
  text_.shrink_to_fit();
  entries_.shrink_to_fit();
}

}  // namespace publishing
