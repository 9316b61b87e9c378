// SPDX-License-Identifier: Apache-2.0
#include "tests/printing/dsc/Pieces.h"

#include <algorithm>
#include <array>

namespace publishing {
namespace {

constexpr std::array kSections = {"Preamble", "Header",  "Prolog", "Setup",
                                  "Page",     "Trailer", "After"};
constexpr std::array kComments = {"None",          "Rest",           "Start",          "Pages",
                                  "DocumentMedia", "EndComments",    "BeginProlog",    "BeginSetup",
                                  "EndSetup",      "BeginFeature",   "IncludeFeature", "Page",
                                  "PageComment",   "BeginPageSetup", "Trailer",        "Eof"};

std::string visible(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    if (byte == '\n') {
      text += "\\n";
    } else if (byte == '\r') {
      text += "\\r";
    } else {
      text += byte;
    }
  }
  return text;
}

struct Whole {
  DscSection section;
  DscComment comment;
  std::string bytes;
};

}  // namespace

DscReader::Source sourceOf(std::string_view text, std::size_t portion) {
  return [text, portion](char* buffer, std::size_t size) mutable {
    const std::size_t length = text.copy(buffer, std::min(size, portion));
    text.remove_prefix(length);
    return length;
  };
}

std::vector<std::string> piecesOf(DscReader& reader) {
  std::vector<Whole> pieces;
  while (const auto piece = reader.next()) {
    const bool continues = !pieces.empty() && (piece->comment == DscComment::Rest ||
                                               (piece->comment == DscComment::None &&
                                                pieces.back().comment == DscComment::None &&
                                                pieces.back().section == piece->section));
    if (!continues) pieces.push_back({piece->section, piece->comment, {}});
    pieces.back().bytes += piece->bytes;
  }
  std::vector<std::string> lines;
  for (const Whole& piece : pieces) {
    lines.push_back(std::string(kSections.at(static_cast<std::size_t>(piece.section))) + " " +
                    kComments.at(static_cast<std::size_t>(piece.comment)) + " |" +
                    visible(piece.bytes) + "|");
  }
  return lines;
}

std::vector<std::string> piecesOf(std::string_view document) {
  DscReader reader(sourceOf(document));
  return piecesOf(reader);
}

}  // namespace publishing
