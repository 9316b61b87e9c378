// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetWarningText.h"

#include "base/Translation.h"

namespace publishing {
namespace {

// More page numbers than these do not help anybody.
constexpr std::size_t kMostPages = 20;

std::string listed(const std::vector<int>& pages) {
  std::string text;
  for (std::size_t i = 0; i < pages.size() && i < kMostPages; ++i)
    text += (i == 0 ? "" : ", ") + std::to_string(pages[i]);
  return pages.size() > kMostPages ? text + ", ..." : text;
}

}  // namespace

std::string textOf(const SheetWarning& warning) {
  using Kind = SheetWarning::Kind;
  switch (warning.kind) {
    case Kind::SeveralPagesASide:
      return translated(
          "Covers and inserts are left out because %s pages share a side. Print one page per side.",
          warning.text);
    case Kind::Booklet:
      return translated("Covers and inserts are left out because a booklet is printed.");
    case Kind::ReverseOrder:
      return translated(
          "Covers and inserts are left out because the last page comes out first. Print in the "
          "normal order.");
    case Kind::UnknownCoverSides:
      return translated("The covers are left out: \"%s\" says nothing about their sides.",
                        warning.text);
    case Kind::NoCoverChosen:
      return translated(
          "The covers are left out: \"%s\" is neither the front cover nor both covers.",
          warning.text);
    case Kind::UnknownInsertSides:
      return translated("The inserts are left out: \"%s\" says nothing about their sides.",
                        warning.text);
    case Kind::NoPagesListed:
      return translated("The inserts are left out because no page is listed for them.");
    case Kind::UnreadablePages:
      return translated("No insert for \"%s\": that is no page number.", warning.text);
    case Kind::PageOnCover:
      return translated("No insert for what is printed on a cover: page %s.",
                        listed(warning.pages));
    case Kind::PageBeyondEnd:
      return translated("No insert for what is beyond the last page: page %s.",
                        listed(warning.pages));
  }
  return {};
}

}  // namespace publishing
