// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetOrder.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "Publishing/PublishingKeys.h"

namespace publishing {
namespace {

using Options = std::map<std::string, std::string>;
using Kind = SheetWarning::Kind;

constexpr std::size_t kLongestText = 40;

// Bits of VtCoverModeValue, and its values for covers without a printed side.
constexpr int kFrontOutside = 1;
constexpr int kFrontInside = 2;
constexpr int kBackOutside = 4;
constexpr int kBackInside = 8;
constexpr int kAllCoverSides = kFrontOutside | kFrontInside | kBackOutside | kBackInside;
constexpr int kNoSideOfFront = 16;
constexpr int kNoSideOfBoth = 32;

constexpr int kFrontCoverOnly = 1;
constexpr int kBothCovers = 2;

char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool same(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

bool isAnyOf(std::string_view value, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [value](std::string_view word) { return same(value, word); });
}

// To CUPS the case of an option's name is all the same.
const std::string* find(const Options& options, std::string_view name) {
  const auto found = std::find_if(options.begin(), options.end(),
                                  [name](const auto& option) { return same(option.first, name); });
  return found == options.end() ? nullptr : &found->second;
}

std::string valueOf(const Options& options, std::string_view name) {
  const std::string* value = find(options, name);
  return value == nullptr ? std::string() : *value;
}

bool isOn(const Options& options, const char* key) {
  return valueOf(options, key) == "On";
}

// Digits alone; nothing when there is anything else or the number does not fit.
std::optional<int> numberIn(std::string_view text) {
  int number = 0;
  const char* end = text.data() + text.size();
  if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

std::string shown(std::string_view value) {
  std::string text(value.substr(0, kLongestText));
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  if (value.size() > kLongestText) text.replace(kLongestText - 3, 3, "...");
  return text;
}

void warn(SheetOrder& order, Kind kind, std::string_view value = {}) {
  order.warnings.push_back({kind, {}, shown(value)});
}

bool isReverse(std::string_view value) {
  constexpr std::string_view kReverseOrder = "reverse-order";  // IPP adds "-face-up", "-face-down"
  return same(value, "Reverse") || same(value.substr(0, kReverseOrder.size()), kReverseOrder);
}

std::string outputOrder(const Options& options, const PrinterFacts& printer) {
  for (const char* name : {kOutputOrder, "output-order", "page-delivery"}) {
    if (const std::string* value = find(options, name)) return *value;
  }
  return printer.markedOutputOrder.empty() ? printer.defaultOutputOrder : printer.markedOutputOrder;
}

// Whether the pages lie on the sheets one by one and in order; warns when not.
bool hasOrdinaryLayout(SheetOrder& order, const Options& options, const PrinterFacts& printer) {
  const std::string* numberUp = find(options, "number-up");
  if (numberUp != nullptr && numberIn(*numberUp) != 1) {
    warn(order, Kind::SeveralPagesASide, *numberUp);
    return false;
  }
  const std::string* booklet = find(options, "booklet");
  if (booklet != nullptr && !isAnyOf(*booklet, {"false", "no", "off"})) {
    warn(order, Kind::Booklet, *booklet);
    return false;
  }
  const std::string delivery = outputOrder(options, printer);
  if (isReverse(delivery)) {
    warn(order, Kind::ReverseOrder, delivery);
    return false;
  }
  return true;
}

bool isTwoSided(const Options& options, const PrinterFacts& printer) {
  if (!printer.canDuplex) return false;
  if (printer.markedTwoSided) return *printer.markedTwoSided;
  return isAnyOf(valueOf(options, "sides"), {"two-sided-long-edge", "two-sided-short-edge"});
}

std::string choiceOf(const Options& options, const char* option, const std::string& marked) {
  const std::string* value = find(options, option);
  return value == nullptr ? marked : *value;
}

// A choice that leaves the medium to the printer means the body's medium.
std::string mediumIn(const std::string& choice) {
  return choice.find(kPrnDef) == std::string::npos ? choice : std::string();
}

void readCovers(SheetOrder& order, const Options& options, const PrinterFacts& printer) {
  const std::string choice = choiceOf(options, cCoverMediaType, printer.markedCoverMediaType);
  if (same(choice, "None")) return;

  const std::string value = valueOf(options, kCoverModeValue);
  const std::optional<int> sides = numberIn(value);
  if (!sides || (*sides > kAllCoverSides && *sides != kNoSideOfFront && *sides != kNoSideOfBoth))
    return warn(order, Kind::UnknownCoverSides, value);

  const std::string column = valueOf(options, kCovermodeRadioButtonState);
  const int covers = numberIn(column).value_or(0);
  if (covers != kFrontCoverOnly && covers != kBothCovers)
    return warn(order, Kind::NoCoverChosen, column);

  const bool back = covers == kBothCovers;
  order.covers = back ? Covers::FrontAndBack : Covers::Front;
  order.coverMedium = mediumIn(choice);
  order.coverSides = {.frontOutside = (*sides & kFrontOutside) != 0,
                      .frontInside = order.twoSided && (*sides & kFrontInside) != 0,
                      .backOutside = back && order.twoSided && (*sides & kBackOutside) != 0,
                      .backInside = back && (*sides & kBackInside) != 0};
}

// Entries are separated by commas, one may stand at the end.
void readPages(SheetOrder& order, std::string_view list) {
  std::string unreadable;
  while (!list.empty()) {
    const std::string_view entry = list.substr(0, list.find(','));
    list.remove_prefix(std::min(entry.size() + 1, list.size()));
    if (entry.empty()) continue;
    const std::optional<int> page = numberIn(entry);
    if (page && *page > 0) {
      order.insertPages.push_back(*page);
    } else if (unreadable.size() <= kLongestText) {
      unreadable.append(unreadable.empty() ? "" : ",").append(entry);
    }
  }
  std::sort(order.insertPages.begin(), order.insertPages.end());
  order.insertPages.erase(std::unique(order.insertPages.begin(), order.insertPages.end()),
                          order.insertPages.end());
  if (!unreadable.empty()) warn(order, Kind::UnreadablePages, unreadable);
}

// In a one-sided job the fronts alone can be printed.
std::optional<InsertPrinting> insertPrinting(const std::string& value, bool twoSided) {
  constexpr InsertPrinting kByValue[] = {InsertPrinting::Blank, InsertPrinting::Front,
                                         InsertPrinting::Back, InsertPrinting::FrontAndBack};
  const std::optional<int> number = value.empty() ? 0 : numberIn(value);
  if (!number || *number >= static_cast<int>(std::size(kByValue))) return std::nullopt;
  return kByValue[twoSided ? *number : *number & 1];
}

void readInserts(SheetOrder& order, const Options& options, const PrinterFacts& printer) {
  const std::string choice = choiceOf(options, cPageMediaType, printer.markedPageMediaType);
  if (same(choice, "None")) return;

  const std::string value = valueOf(options, kPageinsertValue);
  const std::optional<InsertPrinting> printing = insertPrinting(value, order.twoSided);
  if (!printing) return warn(order, Kind::UnknownInsertSides, value);

  readPages(order, valueOf(options, kPageinsertNums));
  if (order.insertPages.empty()) return warn(order, Kind::NoPagesListed);
  order.inserts = true;
  order.insertPrinting = *printing;
  order.insertMedium = mediumIn(choice);
}

bool asksToCollate(const Options& options) {
  if (isAnyOf(valueOf(options, "Collate"), {"true", "yes", "on"})) return true;
  if (const std::string* handling = find(options, "multiple-document-handling"))
    return !same(*handling, "separate-documents-uncollated-copies");
  if (const std::string* collating = find(options, "sheet-collate"))
    return !same(*collating, "uncollated");
  return false;
}

}  // namespace

const std::string& SheetOrder::mediumOf(SheetRole role) const {
  static const std::string kBody;
  switch (role) {
    case SheetRole::FrontCover:
    case SheetRole::BackCover:
      return coverMedium;
    case SheetRole::Insert:
      return insertMedium;
    case SheetRole::Body:
      break;
  }
  return kBody;
}

SheetOrder readSheetOrder(const Options& options, const PrinterFacts& printer) {
  SheetOrder order;
  order.twoSided = isTwoSided(options, printer);
  order.copies = std::max(1, numberIn(valueOf(options, "copies")).value_or(1));
  order.collated =
      asksToCollate(options) || printer.markedCollate || order.copies > printer.mostCopies;

  const bool covers = isOn(options, kCoverModeState);
  const bool inserts = isOn(options, kPageinsertState);
  if (!covers && !inserts) return order;
  if (!hasOrdinaryLayout(order, options, printer)) return order;
  if (covers) readCovers(order, options, printer);
  if (inserts) readInserts(order, options, printer);
  return order;
}

}  // namespace publishing
