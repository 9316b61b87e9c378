// SPDX-License-Identifier: Apache-2.0
// Structured PostScript read and written without any art: all of it in memory, line by line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "printing/dsc/DscReader.h"
#include "programs/filter/SheetCode.h"
#include "sheets/SheetPlan.h"

namespace publishing {

struct NaivePiece {
  DscSection section = DscSection::Preamble;
  DscComment comment = DscComment::None;
  std::string bytes;

  bool operator==(const NaivePiece&) const = default;
};

struct NaiveDocument {
  // Neighbours without a comment in one section are one piece.
  std::vector<NaivePiece> pieces;
  int pages = 0;
  // It ended inside an embedded document or inside data.
  bool isUnfinished = false;
};

NaiveDocument readNaively(std::string_view document);

// The document with the sheets of the plan, which has to be for its number of pages.
std::string writeNaively(const NaiveDocument& document, const SheetPlan& plan,
                         const SheetCode& code);

}  // namespace publishing
