// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetSentence.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include <glib.h>

#include "base/Translation.h"
#include "printing/PageListText.h"

namespace publishing {
namespace {

// --- covers ---

// The pages on the covers by the side they lie on; empty for a blank side.
struct CoverPages {
  std::string frontOutside;
  std::string frontInside;
  std::string backInside;
  std::string backOutside;
  bool backIsCounted = true;  // else the back's are texts that stand for the last pages
};

std::string numberOf(std::optional<int> page) {
  return page.value_or(kBlankSide) == kBlankSide ? std::string() : std::to_string(*page);
}

CoverPages coverPages(const SheetPlan& plan) {
  CoverPages pages;
  for (const Sheet& sheet : plan.sheets) {
    if (sheet.role == SheetRole::FrontCover) {
      pages.frontOutside = numberOf(sheet.front);
      pages.frontInside = numberOf(sheet.back);
    } else if (sheet.role == SheetRole::BackCover) {
      pages.backInside = numberOf(sheet.front);
      pages.backOutside = numberOf(sheet.back);
    }
  }
  return pages;
}

// Of a document with enough pages, however many it has.
CoverPages coverPages(const CoverSides& sides) {
  CoverPages pages;
  pages.backIsCounted = false;
  if (sides.frontOutside) pages.frontOutside = "1";
  if (sides.frontInside) pages.frontInside = sides.frontOutside ? "2" : "1";
  if (sides.backOutside) pages.backOutside = translated("the last page outside on the back");
  if (sides.backInside) {
    pages.backInside = sides.backOutside ? translated("the last page but one inside on the back")
                                         : translated("the last page inside on the back");
  }
  return pages;
}

// "page 1 outside and page 2 inside"; on which cover is only said when both have pages.
std::string pagesOnCovers(const CoverPages& pages) {
  std::vector<std::string> parts;
  const auto add = [&parts](const char* text, const std::string& page) {
    if (!page.empty()) parts.push_back(translated(text, page));
  };
  const bool onBack = !pages.backInside.empty() || !pages.backOutside.empty();
  add(onBack ? N_("page %s outside on the front") : N_("page %s outside"), pages.frontOutside);
  add(onBack ? N_("page %s inside on the front") : N_("page %s inside"), pages.frontInside);
  add(pages.backIsCounted ? N_("page %s inside on the back") : "%s", pages.backInside);
  add(pages.backIsCounted ? N_("page %s outside on the back") : "%s", pages.backOutside);
  return joinedText(parts);
}

std::string coversText(const JobSheets& job) {
  const bool both = job.order.covers == Covers::FrontAndBack;
  const std::string pages =
      pagesOnCovers(job.plan ? coverPages(*job.plan) : coverPages(job.order.coverSides));
  if (pages.empty()) {
    return translated(both ? N_("blank front and back cover on %s") : N_("blank front cover on %s"),
                      job.media.coverText);
  }
  // TRANSLATORS: First the paper, then "page 1 outside" and the like.
  const char* frontCover = N_("front cover on %1$s, %2$s");
  // TRANSLATORS: First the paper, then "page 1 outside" and the like.
  const char* bothCovers = N_("front and back cover on %1$s, %2$s");
  return translated(both ? bothCovers : frontCover, job.media.coverText, pages);
}

// --- inserts ---

// The listed pages that get an insert.
std::vector<int> insertPages(const JobSheets& job) {
  std::vector<int> pages = job.order.insertPages;
  const auto leaveOut = [&pages](const std::vector<int>& others) {
    std::erase_if(pages, [&others](int page) {
      return std::binary_search(others.begin(), others.end(), page);
    });
  };
  using Kind = SheetWarning::Kind;
  if (job.plan) {
    for (const SheetWarning& warning : job.plan->warnings)
      if (warning.kind == Kind::PageOnCover || warning.kind == Kind::PageBeyondEnd)
        leaveOut(warning.pages);
  } else {
    const CoverSides& sides = job.order.coverSides;
    const int onFrontCover = sides.frontOutside + sides.frontInside;
    std::erase_if(pages, [onFrontCover](int page) { return page <= onFrontCover; });
  }
  return pages;
}

std::string insertsText(const JobSheets& job, const std::vector<int>& pages) {
  const std::string list = pageListText(pages);
  const std::string& medium = job.media.insertText;
  const std::int64_t count = std::ssize(pages);
  switch (job.order.insertPrinting) {
    case InsertPrinting::Blank:
      return translatedPlural("a sheet of %1$s before page %2$s",
                              "sheets of %1$s before pages %2$s", count, medium, list);
    case InsertPrinting::Front:
      return translatedPlural("page %2$s on a sheet of %1$s", "pages %2$s on sheets of %1$s", count,
                              medium, list);
    case InsertPrinting::Back:
      return translatedPlural("page %2$s on the back of a sheet of %1$s",
                              "pages %2$s on the backs of sheets of %1$s", count, medium, list);
    case InsertPrinting::FrontAndBack:
      return translatedPlural("page %2$s on a sheet of %1$s printed on both sides",
                              "pages %2$s on sheets of %1$s printed on both sides", count, medium,
                              list);
  }
  return {};
}

// --- the whole ---

// Sentences begin with a capital letter where the script has any.
std::string capitalized(const std::string& text) {
  const gunichar first = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
  if (first == static_cast<gunichar>(-1) || first == static_cast<gunichar>(-2)) return text;
  char capital[6];
  const int bytes = g_unichar_to_utf8(g_unichar_totitle(first), capital);
  return std::string(capital, static_cast<std::size_t>(bytes)) +
         text.substr(static_cast<std::size_t>(g_utf8_skip[static_cast<guchar>(text[0])]));
}

std::string featuresSentence(const JobSheets& job) {
  std::string text;
  if (job.order.covers != Covers::None) text = coversText(job);
  if (const std::vector<int> pages = insertPages(job); !pages.empty()) {
    const std::string inserts = insertsText(job, pages);
    // TRANSLATORS: The covers and the inserts.
    text = text.empty() ? inserts : translated("%1$s; %2$s", text, inserts);
  }
  if (text.empty()) return translated("No covers and no inserts.");
  // TRANSLATORS: The end of a sentence.
  return capitalized(translated("%s.", text));
}

std::string totalSentence(const SheetPlan& plan) {
  const std::int64_t sheets = plan.sheetCount();
  const std::string count = std::to_string(sheets);
  if (plan.copies == 1)
    return translatedPlural("%s sheet in all.", "%s sheets in all.", sheets, count);
  return translatedPlural("%1$s sheet in all for %2$d copies.",
                          "%1$s sheets in all for %2$d copies.", sheets, count, plan.copies);
}

std::string together(const std::string& first, const std::string& second) {
  // TRANSLATORS: Two sentences, one after the other.
  return translated("%1$s %2$s", first, second);
}

}  // namespace

std::string sentenceOf(const JobSheets& job) {
  if (job.plan && job.plan->sheets.empty()) return translated("There is no page to print.");
  std::string text = featuresSentence(job);
  if (job.plan) text = together(text, totalSentence(*job.plan));
  if (job.leavesOutPages && !job.order.isPlain())
    text = together(text, translated("Pages are counted from the first page that is printed."));
  return text;
}

}  // namespace publishing
