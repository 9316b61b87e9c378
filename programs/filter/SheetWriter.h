// SPDX-License-Identifier: Apache-2.0
// Writes a document's PostScript with the sheets that its job asks for.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "printing/dsc/DscReader.h"
#include "programs/filter/ByteSink.h"
#include "programs/filter/SheetCode.h"
#include "sheets/SheetPlanner.h"

namespace publishing {

// Pages come out in the order in which they arrive and with every byte that they have; blank sides
// are pages of their own between them. Pages that the back cover may need are kept until that is
// certain, at most two; those that are large in a file.
class SheetWriter {
 public:
  // How much of each kept page is held in memory, and of a set that is written again.
  static constexpr std::size_t kLargestInMemory = 1024 * 1024;

  // The sink has to outlive the writer.
  SheetWriter(const SheetOrder& order, SheetCode code, ByteSink& sink);

  // The pieces of the document, one after the other.
  void write(const DscPiece& piece);

  // After the last piece: what is still to be written.
  void finish();

  // The sides that were written so far. Those of a printer that makes the copies count once.
  [[nodiscard]] std::int64_t sides() const { return sides_; }

  // After finish().
  [[nodiscard]] std::vector<SheetWarning> warnings() const { return planner_.warnings(); }

 private:
  // A page that waits for its place.
  struct KeptPage {
    std::string label;
    KeptBytes bytes{kLargestInMemory};
    std::size_t codeAt = 0;  // where the code for its sheet belongs
    bool hasSetup = false;   // that place is in a page setup
  };

  void beginPages();
  void beginPage(std::string_view comment);
  void continuePage(const DscPiece& piece);
  void endPage();
  void endPages();
  void writeTrailer(const DscPiece& piece);

  void writeSides(const std::vector<SheetSide>& sides);
  void writeBlank(const SheetSide& side);
  void writeKept(const SheetSide& side);
  // The code that the side needs before it.
  std::string codeBefore(const SheetSide& side);
  void placeCode(bool insideSetup);
  void writeCode(const std::string& code, bool insideSetup);
  void writePageComment(std::string_view label);
  void repeatSet();
  void writeTotal();
  void returnToBody();

  SheetPlanner planner_;
  SheetCode code_;
  LineSink out_;
  bool severalSets_;

  bool setupWritten_ = false;
  bool pagesBegan_ = false;
  bool pagesEnded_ = false;
  bool hasTrailer_ = false;
  bool totalWritten_ = false;
  bool leaveOutRest_ = false;  // of a comment that was replaced

  int arrived_ = 0;
  std::string label_;  // of the page that arrives
  bool inPage_ = false;
  bool codePlaced_ = false;  // in the page that arrives
  bool isKept_ = false;      // it is the last of kept_
  std::string pendingCode_;  // else: the code to be placed in it
  std::deque<KeptPage> kept_;

  std::string medium_;  // of the last sheet
  std::int64_t sides_ = 0;
};

// The label of a "%%Page: label ordinal" line; "?" when there is none.
std::string pageLabel(std::string_view comment);

}  // namespace publishing
