// SPDX-License-Identifier: Apache-2.0
#include "tests/sheets/PictureText.h"

#include <cmath>
#include <sstream>

namespace publishing {
namespace {

using Kind = PictureItem::Kind;

// In ASCII, so that it can be read in any terminal.
std::string plain(std::string text) {
  const std::pair<std::string, std::string> signs[] = {
      {"\u2013", "-"}, {"\u2026", "..."}, {"\u2212", "-"}, {"\u00d7", "x"}};
  for (const auto& [sign, word] : signs) {
    for (std::size_t at = 0; (at = text.find(sign, at)) != std::string::npos;)
      text.replace(at, sign.size(), word);
  }
  return text;
}

std::string side(const std::string& pages) {
  return pages.empty() ? "-" : plain(pages);
}

std::string written(const PictureItem& item) {
  if (item.kind == Kind::Gap) return "... x" + std::to_string(item.count);
  const bool isCover = item.role == SheetRole::FrontCover || item.role == SheetRole::BackCover;
  std::string text = isCover ? "C" : item.role == SheetRole::Insert ? "I" : "B";
  text += side(item.front);
  if (item.twoSided && !item.bothSides) text += '|' + side(item.back);
  if (item.kind == Kind::Stack) text += item.isOpen ? " x..." : " x" + std::to_string(item.count);
  return text;
}

double rounded(double value) {
  return std::round(value * 100) / 100;
}

const char* nameOf(PicturePaper paper) {
  const char* const names[] = {"body", "cover", "insert"};
  return names[static_cast<std::size_t>(paper)];
}

const char* nameOf(PicturePaint paint) {
  const char* const names[] = {"paper", "edge",  "pattern", "fold",
                               "block", "lines", "number",  "caption"};
  return names[static_cast<std::size_t>(paint)];
}

const char* nameOf(PictureShape::Kind kind) {
  const char* const names[] = {"area", "lines", "text"};
  return names[static_cast<std::size_t>(kind)];
}

const char* nameOf(PictureShape::Anchor anchor) {
  const char* const names[] = {"begin", "middle", "end"};
  return names[static_cast<std::size_t>(anchor)];
}

}  // namespace

std::string itemsIn(const SheetPicture& picture) {
  std::string line;
  for (const PictureItem& item : picture.items)
    line += (line.empty() ? "" : ", ") + written(item);
  return line;
}

std::string dumpOf(const SheetPicture& picture) {
  std::ostringstream out;
  out << "picture " << rounded(picture.width) << 'x' << rounded(picture.height) << '\n';
  for (const PictureItem& item : picture.items)
    out << "item " << written(item) << " (" << nameOf(item.paper) << ", sheets from " << item.first
        << ") at " << rounded(item.x) << ',' << rounded(item.y) << ' ' << rounded(item.width) << 'x'
        << rounded(item.height) << '\n';
  for (const PictureShape& shape : picture.shapes) {
    out << nameOf(shape.kind) << ' ' << nameOf(shape.paint);
    if (shape.kind == PictureShape::Kind::Text) {
      out << " \"" << plain(shape.text) << "\" " << nameOf(shape.anchor);
    } else {
      out << ' ' << nameOf(shape.paper);
    }
    out << ' ' << rounded(shape.size);
    for (const std::vector<PicturePoint>& path : shape.paths) {
      const char* between = "; ";
      for (const PicturePoint& point : path) {
        out << between << rounded(point.x) << ',' << rounded(point.y);
        between = " ";
      }
    }
    out << '\n';
  }
  return out.str();
}

}  // namespace publishing
