#include "Publishing/parseNum.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <iostream>
#include <limits>
#include <string_view>
#include <utility>

namespace publishing {
namespace {

// The value of a run of digits; one beyond every bound is as good as the next.
std::int64_t numberFrom(std::string_view digits) {
  constexpr std::int64_t kLargest = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  std::int64_t value = 0;
  for (const char digit : digits)
    value = std::min(value * 10 + (digit - '0'), kLargest);
  return value;
}

class PageList {
 public:
  PageList(std::vector<std::int32_t>* pages, std::int32_t* count, bool duplex,
           std::int64_t coverMode, int upper, int limit)
      : pages_(pages),
        count_(count),
        lowest_((coverMode & 3) == 3 ? 3 : 2),
        lowestStart_(duplex ? lowest_ : 2),
        upper_(upper),
        remaining_(limit) {}

  std::int32_t add(const std::string& item) {
    if (isValidNumber(item.c_str())) return addPage(numberFrom(item));
    const std::size_t dash = item.find('-');
    if (dash == std::string::npos) return kPageListMalformed;
    return addRange(item.substr(0, dash), item.substr(dash + 1));
  }

 private:
  std::int32_t addPage(std::int64_t page) {
    if (holds(page)) return kPageListOK;
    if (page < lowest_ || page > upper_) return kPageListOutOfBounds;
    if (remaining_ <= 0) return kPageListTooLong;
    append(page);
    --remaining_;
    return kPageListOK;
  }

  std::int32_t addRange(const std::string& first, const std::string& last) {
    if (!isValidNumber(first.c_str())) return kPageListMalformed;
    const std::int64_t start = numberFrom(first);
    if (start < lowestStart_ || start >= upper_) return kPageListOutOfBounds;
    if (!isValidNumber(last.c_str())) return kPageListMalformed;
    const std::int64_t end = numberFrom(last);
    if (end > upper_) return kPageListOutOfBounds;
    if (start >= end) return kPageListEmptyRange;
    if (remaining_ <= end - start) return kPageListTooLong;
    for (std::int64_t page = start; page <= end; ++page) {
      if (!holds(page)) append(page);
    }
    return kPageListOK;
  }

  [[nodiscard]] bool holds(std::int64_t page) const {
    return pages_ != nullptr && isExist(pages_->data(), *count_, static_cast<std::int32_t>(page));
  }

  void append(std::int64_t page) {
    if (pages_ != nullptr) pages_->push_back(static_cast<std::int32_t>(page));
    ++*count_;
  }

  std::vector<std::int32_t>* pages_;
  std::int32_t* count_;
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
  *count = 0;
  if (pages != nullptr) pages->clear();

  PageList list(pages, count, duplex, coverMode, upper, limit);
  const std::string_view items = text->c_str();  // like every C string, it ends at a NUL
  for (std::size_t begin = 0; begin < items.size();) {
    const std::size_t end = std::min(items.find(',', begin), items.size());
    if (end > begin) {
      const std::int32_t result = list.add(std::string(items.substr(begin, end - begin)));
      if (result != kPageListOK) return result;
    }
    begin = end + 1;
  }
  if (pages != nullptr) insertion_sort(pages->data(), *count);
  return kPageListOK;
}

bool isValidNumber(const char* text) {
  return guardedScan([text] {
    for (std::size_t next = std::strlen(text); next > 0; --next) {
      if (static_cast<std::uint8_t>(text[next - 1] - '0') > 9) return false;
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
