// SPDX-License-Identifier: Apache-2.0
#include "Publishing/parseNum.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <iostream>
#include <limits>

namespace publishing {
namespace {

constexpr bool isDigit(char byte) {
  return static_cast<std::uint8_t>(byte - '0') <= 9;
}

// Moves `next` past the digits that it stands at and gives their value, 0 for none. Numbers beyond
// every bound are as good as each other.
std::int64_t takeNumber(const char*& next) {
  constexpr std::int64_t kLargest = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  std::int64_t value = 0;
  for (; isDigit(*next); ++next)
    value = std::min(value * 10 + (*next - '0'), kLargest);
  return value;
}

bool isItemEnd(char byte) {
  return byte == ',' || byte == '\0';
}

class PageList {
 public:
  PageList(std::vector<std::int32_t>* pages, bool duplex, std::int64_t coverMode, int upper,
           int limit)
      : pages_(pages),
        lowest_((coverMode & 3) == 3 ? 3 : 2),
        lowestStart_(duplex ? lowest_ : 2),
        upper_(upper),
        remaining_(limit) {}

  // Takes the items of the list up to the first fault.
  std::int32_t addAll(const char* list) {
    while (*list != '\0') {
      if (*list == ',') {
        ++list;
      } else if (const std::int32_t result = addItem(list); result != kPageListOK) {
        return result;
      }
    }
    return kPageListOK;
  }

  [[nodiscard]] std::int32_t count() const { return count_; }

 private:
  // Moves `next` past the item that it stands at.
  std::int32_t addItem(const char*& next) {
    const std::int64_t page = takeNumber(next);
    if (isItemEnd(*next)) return addPage(page);
    if (*next != '-') return kPageListMalformed;
    ++next;
    return addRange(page, next);
  }

  std::int32_t addPage(std::int64_t page) {
    if (holds(page)) return kPageListOK;
    if (page < lowest_ || page > upper_) return kPageListOutOfBounds;
    if (remaining_ <= 0) return kPageListTooLong;
    append(page);
    --remaining_;
    return kPageListOK;
  }

  std::int32_t addRange(std::int64_t start, const char*& next) {
    if (start < lowestStart_ || start >= upper_) return kPageListOutOfBounds;
    const std::int64_t end = takeNumber(next);
    if (!isItemEnd(*next)) return kPageListMalformed;
    if (end > upper_) return kPageListOutOfBounds;
    if (start >= end) return kPageListEmptyRange;
    if (remaining_ <= end - start) return kPageListTooLong;
    for (std::int64_t page = start; page <= end; ++page) {
      if (!holds(page)) append(page);
    }
    return kPageListOK;
  }

  // Most lists ascend: their pages need not be looked for.
  [[nodiscard]] bool holds(std::int64_t page) const {
    return pages_ != nullptr && page <= highest_ &&
           isExist(pages_->data(), count_, static_cast<std::int32_t>(page));
  }

  void append(std::int64_t page) {
    if (pages_ != nullptr) pages_->push_back(static_cast<std::int32_t>(page));
    highest_ = std::max(highest_, page);
    ++count_;
  }

  std::vector<std::int32_t>* pages_;
  std::int32_t count_ = 0;
  std::int64_t highest_ = 0;
  std::int64_t lowest_;
  std::int64_t lowestStart_;
  std::int64_t upper_;
  std::int64_t remaining_;
};

}  // namespace

std::int32_t ParsePageNumber(const std::optional<std::string>& text,
                             std::vector<std::int32_t>* pages, std::int32_t* count, bool duplex,
                             std::int64_t coverMode, int upper, int limit) {
  if (!text) return kPageListMalformed;
  if (pages != nullptr) pages->clear();
  PageList list(pages, duplex, coverMode, upper, limit);
  const std::int32_t result = list.addAll(text->c_str());
  *count = list.count();
  if (pages != nullptr && result == kPageListOK) insertion_sort(pages->data(), *count);
  return result;
}

bool isValidNumber(const char* text) {
  return guardedScan([text] {
    for (std::size_t next = std::strlen(text); next > 0; --next) {
      if (!isDigit(text[next - 1])) return false;
    }
    return true;
  });
}

bool guardedScan(const std::function<bool()>& scan) {
  try {
    return scan();
  } catch (const std::exception& exception) {
    std::clog << "Exception occurred: " << exception.what() << '\n';
    return false;
  }
}

bool isExist(const std::int32_t* pages, std::int32_t count, std::int32_t value) {
  if (pages == nullptr) return false;
  for (std::int32_t index = count - 1; index >= 0; --index) {
    if (pages[index] == value) return true;
  }
  return false;
}

void insertion_sort(std::int32_t* numbers, std::int32_t length) {
  for (std::int32_t index = 1; index < length; ++index) {
    const std::int32_t number = numbers[index];
    std::int32_t place = index;
    for (; place > 0 && numbers[place - 1] > number; --place)
      numbers[place] = numbers[place - 1];
    numbers[place] = number;
  }
}

}  // namespace publishing
