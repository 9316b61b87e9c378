// SPDX-License-Identifier: Apache-2.0
// The Page Insert page list: single pages and ranges, as in "5,8,12-14".
//
// Items are separated by ",". An item is a run of decimal digits or two such runs joined by one
// "-". Nothing else belongs to the grammar, blanks neither. Empty items are skipped.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace publishing {

// What ParsePageNumber answers.
inline constexpr std::int32_t kPageListOK = 0;
inline constexpr std::int32_t kPageListMalformed = -1;
inline constexpr std::int32_t kPageListOutOfBounds = -2;
inline constexpr std::int32_t kPageListTooLong = -3;
inline constexpr std::int32_t kPageListEmptyRange = -4;

// The bounds that the printer sets and the panel passes.
inline constexpr int kHighestPage = 511;
inline constexpr int kMostPages = 10;

// Parses a page list into distinct page numbers, ascending.
//
// text       the list, or nothing
// pages      receives every accepted page and grows as needed; may be null, then pages are only
//            counted, repeated ones again each time
// count      receives the number of accepted pages; left alone when there is no text
// duplex     whether the job prints on both sides
// coverMode  the sides of the cover to be printed; when both front sides are (bits 1 and 2), the
//            lowest page is 3, else 2. One-sided jobs may still start a range at 2.
// upper      the highest page
// limit      how many single pages there may be. A range must not hold more pages than single
//            pages have left of it, but uses nothing up itself: a list can yield more pages.
//
// The leftmost fault decides the result: 0; -1 no text or not a list; -2 a page out of bounds (a
// number of any length is just a large one); -3 too many pages; -4 a range that does not ascend.
// After a fault, pages and count stand as they were before the faulty item, unsorted.
std::int32_t ParsePageNumber(const std::optional<std::string>& text,
                             std::vector<std::int32_t>* pages, std::int32_t* count, bool duplex,
                             std::int64_t coverMode, int upper, int limit);

// True when every byte is a decimal digit; an empty string is valid. `text` is NUL-terminated.
bool isValidNumber(const char* text);

// True when `value` is among the first `count` entries; a null array holds nothing.
bool isExist(const std::int32_t* pages, std::int32_t count, std::int32_t value);

// Sorts `length` numbers ascending in place.
void insertion_sort(std::int32_t* numbers, std::int32_t length);

// Answers the scan's result; when a std::exception escapes from it, logs the exception on standard
// error and answers false. Exceptions of other kinds pass.
bool guardedScan(const std::function<bool()>& scan);

}  // namespace publishing
