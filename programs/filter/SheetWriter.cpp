// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/SheetWriter.h"

#include <algorithm>
#include <utility>

namespace publishing {
namespace {

constexpr std::size_t kSetBuffer = 64 * 1024;  // for a set that is read again

// Leaves the graphics state of the document alone. A document may have its own showpage.
constexpr const char* kBlankPage = "gsave systemdict/showpage get exec grestore";

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

bool isNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(),
                                      [](char byte) { return byte >= '0' && byte <= '9'; });
}

}  // namespace

std::string pageLabel(std::string_view comment) {
  const std::string_view text = withoutBlanks(comment.substr(comment.find(':') + 1));
  const std::size_t blank = text.find_last_of(" \t");
  if (blank == std::string_view::npos || !isNumber(text.substr(blank + 1)))
    return text.empty() ? "?" : std::string(text);
  return std::string(withoutBlanks(text.substr(0, blank)));
}

SheetWriter::SheetWriter(const SheetOrder& order, SheetCode code, ByteSink& sink)
    : planner_(order),
      code_(std::move(code)),
      out_(sink),
      severalSets_(order.collated && order.copies > 1) {}

void SheetWriter::write(const DscPiece& piece) {
  if (piece.comment == DscComment::Rest && leaveOutRest_) return;
  leaveOutRest_ = false;
  if (piece.section == DscSection::Page) {
    if (piece.comment == DscComment::Page) {
      beginPage(piece.bytes);
    } else {
      continuePage(piece);
    }
    return;
  }
  if (piece.section >= DscSection::Trailer) {
    writeTrailer(piece);
    return;
  }
  if (piece.comment == DscComment::Pages) {
    out_.writeLine("%%Pages: (atend)");
    leaveOutRest_ = true;
    return;
  }
  if (piece.comment == DscComment::EndSetup && !std::exchange(setupWritten_, true))
    out_.writeLine(code_.setup);
  out_.write(piece.bytes);
  if (piece.comment == DscComment::Start) out_.writeLine(kSheetsMark);
}

void SheetWriter::finish() {
  endPages();
  if (pagesBegan_ && !totalWritten_) writeTotal();
}

void SheetWriter::beginPages() {
  pagesBegan_ = true;
  if (!std::exchange(setupWritten_, true)) {
    out_.writeLine("%%BeginSetup");
    out_.writeLine(code_.setup);
    out_.writeLine("%%EndSetup");
  }
  if (severalSets_) out_.keep(kLargestInMemory);
}

void SheetWriter::beginPage(std::string_view comment) {
  if (!pagesBegan_) beginPages();
  endPage();
  ++arrived_;
  label_ = pageLabel(comment);
  leaveOutRest_ = true;
  inPage_ = true;
  codePlaced_ = false;

  const std::vector<SheetSide> sides = planner_.addPage();
  isKept_ = sides.empty() || sides.back().page != arrived_;
  writeSides(sides);
  if (isKept_) {
    kept_.emplace_back();
    kept_.back().label = label_;
  }
}

void SheetWriter::continuePage(const DscPiece& piece) {
  // The page's own comments stay next to its beginning.
  const bool isPlace =
      piece.comment != DscComment::PageComment && piece.comment != DscComment::Rest;
  const bool hasSetup = piece.comment == DscComment::BeginPageSetup;
  if (!codePlaced_ && isPlace && !hasSetup) placeCode(false);
  if (isKept_) {
    kept_.back().bytes.write(piece.bytes);
  } else {
    out_.write(piece.bytes);
  }
  if (!codePlaced_ && hasSetup) placeCode(true);
}

void SheetWriter::endPage() {
  if (!inPage_) return;
  if (!codePlaced_) placeCode(false);
  inPage_ = false;
}

void SheetWriter::endPages() {
  if (std::exchange(pagesEnded_, true)) return;
  endPage();
  isKept_ = false;
  writeSides(planner_.finish());
  if (severalSets_ && pagesBegan_) repeatSet();
}

void SheetWriter::writeTrailer(const DscPiece& piece) {
  endPages();
  if (piece.comment == DscComment::Trailer) {
    hasTrailer_ = true;
    out_.write(piece.bytes);
    return returnToBody();
  }
  if (piece.comment == DscComment::Pages && pagesBegan_) {
    writeTotal();
    leaveOutRest_ = true;
    return;
  }
  if (piece.comment == DscComment::Eof && pagesBegan_ && !totalWritten_) writeTotal();
  out_.write(piece.bytes);
}

void SheetWriter::writeTotal() {
  if (!std::exchange(hasTrailer_, true)) {
    out_.writeLine("%%Trailer");
    returnToBody();
  }
  out_.writeLine("%%Pages: " + std::to_string(sides_));
  totalWritten_ = true;
}

// The job's next document, or its banner, is not to come out on a cover.
void SheetWriter::returnToBody() {
  if (medium_.empty()) return;
  const auto code = code_.media.find({});
  if (code != code_.media.end()) out_.writeLine(code->second);
}

// The page that arrives is the last side, if it is one of them.
void SheetWriter::writeSides(const std::vector<SheetSide>& sides) {
  for (const SheetSide& side : sides) {
    if (side.page == kBlankSide) {
      writeBlank(side);
    } else if (inPage_ && !isKept_ && side.page == arrived_) {
      pendingCode_ = codeBefore(side);
      writePageComment(label_);
    } else {
      writeKept(side);
    }
  }
}

void SheetWriter::writeBlank(const SheetSide& side) {
  const std::string code = codeBefore(side);
  writePageComment("(blank)");
  out_.writeLine("%%PageBoundingBox: 0 0 0 0");
  writeCode(code, false);
  out_.writeLine(kBlankPage);
}

void SheetWriter::writeKept(const SheetSide& side) {
  const KeptPage page = std::move(kept_.front());
  kept_.pop_front();
  const std::string code = codeBefore(side);
  writePageComment(page.label);
  page.bytes.copy(0, page.codeAt, out_);
  writeCode(code, page.hasSetup);
  page.bytes.copy(page.codeAt, page.bytes.size(), out_);
}

std::string SheetWriter::codeBefore(const SheetSide& side) {
  const std::string& medium = planner_.order().mediumOf(side.role);
  const bool beginsSet = sides_ == 0 && severalSets_;
  ++sides_;
  if (side.isBack || (medium == medium_ && !beginsSet)) return {};
  medium_ = medium;
  const auto code = code_.media.find(medium);
  return (beginsSet ? code_.newSet : std::string()) +
         (code == code_.media.end() ? std::string() : code->second);
}

void SheetWriter::placeCode(bool insideSetup) {
  codePlaced_ = true;
  if (isKept_) {
    kept_.back().codeAt = kept_.back().bytes.size();
    kept_.back().hasSetup = insideSetup;
  } else {
    writeCode(pendingCode_, insideSetup);
  }
}

void SheetWriter::writeCode(const std::string& code, bool insideSetup) {
  if (code.empty()) return;
  if (!insideSetup) out_.writeLine("%%BeginPageSetup");
  out_.writeLine(code);
  if (!insideSetup) out_.writeLine("%%EndPageSetup");
}

void SheetWriter::writePageComment(std::string_view label) {
  out_.writeLine("%%Page: " + std::string(label) + " " + std::to_string(sides_));
}

// Only the ordinals of the pages differ from what was written first.
void SheetWriter::repeatSet() {
  const KeptBytes set = out_.giveKept();
  for (int copy = 1; copy < planner_.order().copies; ++copy) {
    std::size_t place = 0;
    DscReader reader(
        [&](char* buffer, std::size_t size) {
          const std::size_t length = set.read(place, buffer, size);
          place += length;
          return length;
        },
        kSetBuffer, DscSection::Page);
    while (const std::optional<DscPiece> piece = reader.next()) {
      if (piece->comment == DscComment::Page) {
        ++sides_;
        writePageComment(pageLabel(piece->bytes));
        leaveOutRest_ = true;
      } else if (piece->comment != DscComment::Rest || !leaveOutRest_) {
        out_.write(piece->bytes);
        leaveOutRest_ = false;
      }
    }
  }
}

}  // namespace publishing
