// SPDX-License-Identifier: Apache-2.0
#include "shells/PageListNote.h"

#include <algorithm>
#include <iterator>

#include "Publishing/parseNum.h"
#include "base/Translation.h"
#include "printing/PageListText.h"
#include "printing/SheetWarningText.h"

namespace publishing {
namespace {

// Also in the interface description.
constexpr const char* kWhatCounts =
    N_("Up to 10 single pages, and ranges of up to 10 pages, one less for each single page before "
       "them.");
static_assert(kMostPages == 10);

// The listed pages that get no sheet, and why.
std::string remarkOn(const JobSheets& sheets) {
  std::string text;
  const auto add = [&text](const std::string& sentence) {
    text += (text.empty() ? "" : " ") + sentence;
  };
  for (const SheetWarning& warning : sheets.plan->warnings) {
    using Kind = SheetWarning::Kind;
    if (warning.kind == Kind::PageOnCover) add(textOf(warning));
    if (warning.kind == Kind::PageBeyondEnd) {
      add(translatedPlural("No insert for page %1$s: the last page is %2$d.",
                           "No inserts for pages %1$s: the last page is %2$d.",
                           std::ssize(warning.pages), pageListText(warning.pages), sheets.pages));
    }
  }
  return text;
}

}  // namespace

std::size_t placeOfEdit(const std::string& before, const std::string& after) {
  const auto [last, ignored] =
      std::mismatch(after.rbegin(), after.rend(), before.rbegin(), before.rend());
  return static_cast<std::size_t>(after.rend() - last);
}

FieldNote hintOnPages(const PageListRules& rules, const JobSheets& sheets) {
  const int lowest = rules.lowestPage();
  const bool isCounted = sheets.plan && sheets.pages >= lowest;
  const int highest = isCounted ? std::min(sheets.pages, kHighestPage) : kHighestPage;
  // TRANSLATORS: Two sentences, one after the other.
  return {FieldNote::Kind::Hint,
          translated("%1$s %2$s", translated("Pages %d to %d.", lowest, highest),
                     translated(kWhatCounts))};
}

FieldNote noteOnPages(const std::string& list, const PageListRules& rules, const JobSheets& sheets,
                      std::optional<std::size_t> edited) {
  using Kind = FieldNote::Kind;
  if (list.empty()) return hintOnPages(rules, sheets);
  if (const auto fault = faultInPages(list, rules)) {
    const bool isTyped =
        edited && *edited >= fault->first && *edited <= fault->first + fault->length;
    return {isTyped && fault->isBeginning ? Kind::Unfinished : Kind::Fault, fault->reason};
  }
  const std::string remark = sheets.plan ? remarkOn(sheets) : std::string();
  return remark.empty() ? hintOnPages(rules, sheets) : FieldNote{Kind::Remark, remark};
}

}  // namespace publishing
