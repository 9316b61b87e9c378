// SPDX-License-Identifier: Apache-2.0
// Any bytes as structured PostScript: the filter's reader against a naive one, and what it writes
// with any sheets against what a naive writer makes of the whole plan. So no byte is lost, no page
// doubled or out of order, and paper changes before fronts alone.
//
// The first four bytes of the input say how the sheets are made and in what portions the document
// is read; the rest is the document.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/NaiveDocument.h"
#include "fuzz/Require.h"
#include "programs/filter/SheetWriter.h"

namespace publishing {
namespace {

class TextSink : public ByteSink {
 public:
  void write(std::string_view bytes) override { text += bytes; }
  std::string text;
};

std::map<std::string, std::string> optionsIn(std::uint8_t covers, std::uint8_t inserts,
                                             std::uint8_t more) {
  std::map<std::string, std::string> options = {{"CoverMediaType", "Leather"},
                                                {"PageMediaType", "Blue"}};
  options["sides"] = (covers & 64) != 0 ? "two-sided-long-edge" : "one-sided";
  options["VtCoverModeState"] = (covers & 16) != 0 ? "On" : "Off";
  options["VtCovermodeRadioButtonState"] = (covers & 32) != 0 ? "1" : "2";
  options["VtCoverModeValue"] = std::to_string(covers & 15);
  options["VtPageinsertState"] = (inserts & 4) != 0 ? "On" : "Off";
  options["VtPageinsertValue"] = std::to_string(inserts & 3);
  std::string pages;
  for (int page = 1; page <= 5; ++page) {
    if ((inserts >> (page + 2) & 1) != 0) pages += std::to_string(page) + ",";
  }
  options["VtPageinsertNums"] = pages;
  options["copies"] = std::to_string(1 + (more & 3));
  options["Collate"] = (more & 4) != 0 ? "true" : "false";
  return options;
}

SheetCode code() {
  return {"setup\n",
          {{"", "to body\n"}, {"Leather", "to Leather\n"}, {"Blue", "to Blue\n"}},
          "again\n"};
}

DscReader::Source sourceOf(std::string_view text, std::size_t portion) {
  return [text, portion](char* buffer, std::size_t size) mutable {
    const std::size_t length = text.copy(buffer, std::min(size, portion));
    text.remove_prefix(length);
    return length;
  };
}

void checkReader(std::string_view document, const NaiveDocument& naive, std::size_t portion) {
  DscReader reader(sourceOf(document, portion), document.size() + 100);
  std::vector<NaivePiece> pieces;
  while (const auto piece = reader.next()) {
    const bool continues = piece->comment == DscComment::None && !pieces.empty() &&
                           pieces.back().comment == DscComment::None &&
                           pieces.back().section == piece->section;
    if (!continues) pieces.push_back({piece->section, piece->comment, {}});
    pieces.back().bytes += piece->bytes;
  }
  require(pieces == naive.pieces, "the reader finds another structure than a naive one");
}

// In a small buffer long lines are cut, but no byte is lost.
void checkSmallBuffer(std::string_view document, std::size_t portion) {
  DscReader reader(sourceOf(document, portion), DscReader::kSmallestBuffer);
  std::string all;
  while (const auto piece = reader.next()) {
    require(!piece->bytes.empty(), "an empty piece");
    all += piece->bytes;
  }
  require(all == document, "the reader lost bytes");
}

void checkWriter(std::string_view document, const NaiveDocument& naive, SheetOrder order) {
  // Nobody could find the pages of the set again behind data that does not end.
  if (naive.isUnfinished) order.copies = 1;
  TextSink sink;
  SheetWriter writer(order, code(), sink);
  DscReader reader(sourceOf(document, 100), document.size() + 100);
  while (const auto piece = reader.next())
    writer.write(*piece);
  writer.finish();
  require(sink.text == writeNaively(naive, planSheets(order, naive.pages), code()),
          "the writer makes other sheets than the plan says");
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace publishing;
  if (size < 4) return 0;
  const std::string_view document(reinterpret_cast<const char*>(data) + 4, size - 4);
  const std::size_t portion = 1U + data[3];
  const NaiveDocument naive = readNaively(document);
  checkReader(document, naive, portion);
  checkSmallBuffer(document, portion);
  checkWriter(document, naive, readSheetOrder(optionsIn(data[0], data[1], data[2]), {}));
  return 0;
}
