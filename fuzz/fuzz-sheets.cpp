// SPDX-License-Identifier: Apache-2.0
// Sheet orders from any job options, and the sheets of any number of pages: no page lost, none
// doubled, no sheet torn; the stream and the whole plan against the rules written a second time.
// Their picture shows every sheet.
//
// The first two bytes of the input give the number of pages, the third what the PPD says; the rest
// is a list of "NAME=VALUE", each ended by a NUL.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "sheets/SheetPictureSVG.h"
#include "sheets/SheetPlan.h"
#include "tests/sheets/SheetRules.h"

namespace publishing {
namespace {

constexpr int kMostPages = 200;

PrinterFacts factsIn(std::uint8_t bits) {
  PrinterFacts printer;
  printer.canDuplex = (bits & 1) == 0;
  if ((bits & 2) != 0) printer.markedTwoSided = (bits & 4) != 0;
  if ((bits & 8) != 0) printer.markedOutputOrder = (bits & 16) != 0 ? "Reverse" : "Normal";
  if ((bits & 32) != 0) printer.defaultOutputOrder = "Reverse";
  if ((bits & 64) != 0) printer.markedCoverMediaType = "None";
  if ((bits & 128) != 0) printer.markedPageMediaType = "Labels";
  return printer;
}

std::map<std::string, std::string> optionsIn(std::string_view list) {
  std::map<std::string, std::string> options;
  while (!list.empty()) {
    const std::string_view entry = list.substr(0, list.find('\0'));
    list.remove_prefix(std::min(entry.size() + 1, list.size()));
    const std::size_t equals = entry.find('=');
    if (equals == std::string_view::npos) continue;
    options[std::string(entry.substr(0, equals))] = entry.substr(equals + 1);
  }
  return options;
}

void checkOrder(const SheetOrder& order) {
  const std::vector<int>& pages = order.insertPages;
  require(std::adjacent_find(pages.begin(), pages.end(), std::greater_equal<>()) == pages.end(),
          "listed pages are not ascending and distinct");
  require(pages.empty() || pages.front() > 0, "a listed page is no page");
  require(order.inserts == !pages.empty(), "inserts without pages, or pages without inserts");
  require(order.copies > 0, "no copy");
  const CoverSides& sides = order.coverSides;
  require(order.twoSided || (!sides.frontInside && !sides.backOutside &&
                             order.insertPrinting <= InsertPrinting::Front),
          "a back of a one-sided job");
  require(order.covers != Covers::None || sides == CoverSides{}, "sides of no cover");
  require(order.covers == Covers::FrontAndBack || (!sides.backOutside && !sides.backInside),
          "sides of no back cover");
  for (const SheetWarning& warning : order.warnings) {
    require(warning.text.size() <= 40, "a long text");
    for (const char letter : warning.text)
      require(letter >= ' ' && letter <= '~', "an unprintable text");
  }
}

// A job of the panel that asks for the same.
SheetJob jobOf(const SheetOrder& order, int pages) {
  const CoverSides& sides = order.coverSides;
  return {.twoSided = order.twoSided,
          .covers = order.covers != Covers::None,
          .column = order.covers == Covers::FrontAndBack ? 2 : 1,
          .coverValue = sides.frontOutside + 2 * sides.frontInside + 4 * sides.backOutside +
                        8 * sides.backInside,
          .inserts = order.inserts,
          .insertValue = static_cast<int>(order.insertPrinting),
          .list = order.insertPages,
          .pages = pages};
}

void checkPlan(SheetOrder order, int pages) {
  order.coverMedium = "Leather";
  order.insertMedium = "Thick";
  order.warnings.clear();
  const SheetPlan plan = planSheets(order, pages);
  const char* broken = brokenRule(jobOf(order, pages), plan);
  require(broken == nullptr, broken == nullptr ? "" : broken);

  std::int64_t total = 0;
  for (const MediumTotal& entry : mediumTotals(plan))
    total += entry.sheets;
  require(total == plan.sheetCount(), "totals do not add up");
  std::size_t next = 0;
  for (const MediumRun& run : mediumRuns(plan)) {
    require(run.first == next && run.count > 0, "runs do not follow each other");
    next += run.count;
  }
  require(next == plan.sheets.size(), "runs miss a sheet");
}

void checkPicture(const SheetOrder& order, int pages, const std::string& words) {
  const SheetPlan plan = planSheets(order, pages);
  const PictureOptions options = {.width = 10.0 * pages,
                                  .mostRows = pages % 7,
                                  .rightToLeft = pages % 2 == 1,
                                  .title = words,
                                  .bodyMediumName = words};
  const SheetPicture picture = pictureOf(plan, options);
  std::size_t next = 0;
  for (const PictureItem& item : picture.items) {
    require(item.first == next && item.count > 0, "the picture misses a sheet");
    next += item.count;
  }
  require(next == plan.sheets.size(), "the picture misses the last sheet");
  require(!writePictureSVG(picture, words).empty(), "no picture");
  if (pages % 32 == 0) schemeOf(order, options);
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace publishing;
  if (size < 3) return 0;
  const int pages = (data[0] * 256 + data[1]) % (kMostPages + 1);
  const std::string_view list(reinterpret_cast<const char*>(data) + 3, size - 3);
  const SheetOrder order = readSheetOrder(optionsIn(list), factsIn(data[2]));
  checkOrder(order);
  const char* broken = brokenPromise(order, pages);
  require(broken == nullptr, broken == nullptr ? "" : broken);
  checkPlan(order, pages);
  // A picture takes much longer than a plan.
  if (pages % 8 == 0) checkPicture(order, pages, std::string(list.substr(0, 60)));
  return 0;
}
