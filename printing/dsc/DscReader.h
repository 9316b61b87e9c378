// SPDX-License-Identifier: Apache-2.0
// Takes PostScript apart along its document structuring comments (DSC), while it arrives.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace publishing {

enum class DscSection {
  Preamble,  // what comes before "%!": commands for the printer's controller
  Header,
  Prolog,  // with the defaults, and whatever else comes before the setup and the pages
  Setup,
  Page,
  Trailer,
  After  // behind %%EOF
};

enum class DscComment {
  None,   // any bytes without a comment of those below
  Rest,   // more of the line before, which was too long for one piece
  Start,  // the line with "%!"
  Pages,
  DocumentMedia,
  EndComments,
  BeginProlog,  // or %%BeginDefaults
  BeginSetup,
  EndSetup,
  BeginFeature,
  IncludeFeature,
  Page,
  PageComment,  // others that begin with %%Page, but for %%PageTrailer
  BeginPageSetup,
  Trailer,
  Eof
};

struct DscPiece {
  DscSection section = DscSection::Preamble;  // a comment that begins a section belongs to it
  DscComment comment = DscComment::None;
  // A comment has its line end. Valid until the reader is asked again.
  std::string_view bytes;
};

// The pieces, put together, are the document byte by byte.
//
// Structure is what stands at the beginning of a line; lines end in LF, CR or CR LF. What embedded
// documents hold (%%BeginDocument, %ADO_BeginApplication) and what is said to be data (%%BeginData,
// %%BeginBinary) is no structure. A document that does not end what it began, or counts its data
// wrongly, is read as it says, never beyond its end.
//
// Needs memory for one buffer, however long the document and its lines are.
class DscReader {
 public:
  // Writes at least one byte into the buffer and answers how many; 0 at the end. What it throws,
  // next() passes on.
  using Source = std::function<std::size_t(char* buffer, std::size_t size)>;

  static constexpr std::size_t kBufferSize = 256 * 1024;
  static constexpr std::size_t kSmallestBuffer = 32;

  // A comment that does not fit into the buffer comes in parts: see DscComment::Rest. What is read
  // may be a part of a document, which then begins in another section.
  explicit DscReader(Source source, std::size_t bufferSize = kBufferSize,
                     DscSection section = DscSection::Preamble);

  // The next piece, which is never empty; nothing at the end of the document.
  std::optional<DscPiece> next();

 private:
  std::optional<DscPiece> nextStructure();
  DscPiece restOfLine();
  DscPiece data();

  bool fill();
  [[nodiscard]] bool mayBeComment(std::size_t at) const;
  [[nodiscard]] std::optional<std::size_t> lineLength(std::size_t at) const;
  std::optional<std::size_t> wholeLine();
  std::optional<std::size_t> lineAhead();
  [[nodiscard]] std::size_t partOfLine() const;
  DscPiece take(std::size_t length, DscComment comment);

  [[nodiscard]] DscComment classify(std::string_view line) const;
  void enter(DscComment comment);
  bool beginsData(std::string_view line);
  void followEmbedding(std::string_view line);

  Source source_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // what was read and not handed out: from begin_ to end_
  std::size_t end_ = 0;
  bool atEnd_ = false;
  char last_ = '\n';  // the byte before begin_

  DscSection section_;
  bool insideLine_ = false;  // the line that was handed out last goes on
  int embedded_ = 0;         // how many documents the present line is embedded in
  std::uint64_t dataBytes_ = 0;
  std::uint64_t dataLines_ = 0;
};

}  // namespace publishing
