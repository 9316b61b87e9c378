// SPDX-License-Identifier: Apache-2.0
#include "printing/SheetWarningText.h"

#include <iterator>

#include "base/Translation.h"
#include "printing/PageListText.h"

namespace publishing {
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
      return translatedPlural("No insert for page %s: it is printed on a cover.",
                              "No inserts for pages %s: they are printed on covers.",
                              std::ssize(warning.pages), pageListText(warning.pages));
    case Kind::PageBeyondEnd:
      return translatedPlural("No insert for page %s: the last page comes before it.",
                              "No inserts for pages %s: the last page comes before them.",
                              std::ssize(warning.pages), pageListText(warning.pages));
  }
  return {};
}

}  // namespace publishing
