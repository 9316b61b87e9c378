// SPDX-License-Identifier: Apache-2.0
// What a job asks for on its sheets: covers, inserts, two sides, copies.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "sheets/Sheet.h"
#include "sheets/SheetWarning.h"

namespace publishing {

// What the printer's PPD adds to the job's options, with the job's choices marked in it. An empty
// text: the PPD says nothing.
struct PrinterFacts {
  // Whether the PPD has a duplex option.
  bool canDuplex = true;
  // What the marked choice of that option means; nothing when none of the known ones is marked.
  std::optional<bool> markedTwoSided = {};
  std::string markedOutputOrder = {};
  // PageStackOrder of the marked OutputBin, else DefaultOutputOrder.
  std::string defaultOutputOrder = {};
  // They count when the job's options name no choice.
  std::string markedCoverMediaType = {};
  std::string markedPageMediaType = {};
  // Whether the printer collates copies by itself, and how many it can make of a sheet. More than
  // those are made as whole sets, one after the other.
  bool markedCollate = false;
  int mostCopies = 9999;
};

enum class Covers { None, Front, FrontAndBack };

// The sides of the covers that take a page. Outside and inside are those of the finished set: the
// outside of the back cover is the back of its sheet.
struct CoverSides {
  bool frontOutside = false;
  bool frontInside = false;
  bool backOutside = false;
  bool backInside = false;

  bool operator==(const CoverSides&) const = default;
};

// Blank: an empty sheet comes before a listed page. Otherwise the listed page itself is printed on
// the insert: on its front, on its back, or on its front with the following page on its back.
enum class InsertPrinting { Blank, Front, Back, FrontAndBack };

// Only what can be printed is set: no side of a cover that is not there, no back in a one-sided
// job. SheetPlanner relies on that.
struct SheetOrder {
  bool twoSided = false;

  Covers covers = Covers::None;
  CoverSides coverSides;
  // Keywords of PPD choices; empty: the medium of the body.
  std::string coverMedium;

  bool inserts = false;
  InsertPrinting insertPrinting = InsertPrinting::Blank;
  std::string insertMedium;
  // The listed pages, ascending, each once, 1 or more. Empty without inserts.
  std::vector<int> insertPages;

  // 1 or more. Collated: the whole set, covers and inserts included, comes out that often.
  // Otherwise each sheet does, one after the other.
  int copies = 1;
  bool collated = false;

  std::vector<SheetWarning> warnings;

  // Neither covers nor inserts: the pages just follow each other.
  [[nodiscard]] bool isPlain() const { return covers == Covers::None && !inserts; }

  // The medium of sheets with that role.
  [[nodiscard]] const std::string& mediumOf(SheetRole role) const;
};

// Reads a job's options, as CUPS hands them to filters: the panel's keys, CoverMediaType,
// PageMediaType, sides, number-up, booklet, OutputOrder, output-order, page-delivery, copies,
// Collate, multiple-document-handling and sheet-collate. Names are taken in any case of their
// letters. Any value is safe: what cannot be understood is left out of the order and named in the
// warnings; copies that are no number count as one.
SheetOrder readSheetOrder(const std::map<std::string, std::string>& options,
                          const PrinterFacts& printer);

}  // namespace publishing
