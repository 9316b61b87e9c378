// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPictureDrawing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "sheets/SheetPictureText.h"

namespace publishing {
namespace {

using Point = PicturePoint;
using Path = std::vector<Point>;
using Shape = PictureShape;
using Paint = PicturePaint;
using Kind = PictureItem::Kind;
using Box = PictureBox;

// In units.
constexpr double kSheetWidth = 44;
constexpr double kSheetHeight = 60;
constexpr double kCorner = 12;
constexpr double kStep = 3;  // from layer to layer of a stack
constexpr std::size_t kMostLayers = 4;
constexpr double kOverlap = kStep * (kMostLayers - 1);
constexpr double kDotsWidth = 24;  // of a gap
constexpr double kBackWidth = 32;
constexpr double kBackHeight = 17;
constexpr double kBackDistance = 5;
constexpr double kCountHeight = 15;

constexpr double kEdgeWidth = 1;
constexpr double kPatternWidth = 1;
constexpr double kDotSize = 2;
constexpr double kLargestNumber = 15;
constexpr double kLargestOnTwoLines = 12;
constexpr double kCountSize = 11;
constexpr double kDotsSize = 22;

constexpr const char* kDots = "\u2026";
constexpr const char* kTimes = "\u00d7";

// The outline of a sheet, clockwise; `corner` is cut off at the bottom.
Path outline(const Box& box, double corner) {
  const double right = box.x + box.width;
  const double bottom = box.y + box.height;
  Path path = {{box.x, box.y}, {right, box.y}};
  if (corner > 0) {
    path.push_back({right, bottom - corner});
    path.push_back({right - corner, bottom});
  } else {
    path.push_back({right, bottom});
  }
  path.push_back({box.x, bottom});
  return path;
}

Path closed(Path path) {
  path.push_back(path.front());
  return path;
}

constexpr double kPatternDistance = 6;

// How many strokes of a pattern there are below that length, the first at `first`.
int strokesBelow(double length, double first) {
  return std::max(0, static_cast<int>(std::ceil((length - first) / kPatternDistance)));
}

// Rising lines; those that would cross the cut corner are left out, it rises as they do.
std::vector<Path> hatching(const Box& box, double corner) {
  std::vector<Path> lines(
      static_cast<std::size_t>(strokesBelow(box.width + box.height - corner, kPatternDistance)));
  double sum = 0;  // of the distances of a line's points from the left and from the top
  for (Path& line : lines) {
    sum += kPatternDistance;
    line = {{box.x + std::max(0.0, sum - box.height), box.y + std::min(sum, box.height)},
            {box.x + std::min(sum, box.width), box.y + std::max(0.0, sum - box.width)}};
  }
  return lines;
}

// Strokes as long as they are wide, every other row of them shifted.
std::vector<Path> dots(const Box& box, double corner) {
  constexpr double kFirst = kPatternDistance / 2;
  std::vector<Path> lines;
  for (int row = 0; row < strokesBelow(box.height - 1, kFirst); ++row) {
    const double y = kFirst + row * kPatternDistance;
    const double first = row % 2 == 0 ? kFirst : kPatternDistance;
    for (int column = 0; column < strokesBelow(box.width - kDotSize, first); ++column) {
      const double x = first + column * kPatternDistance;
      if (x + y > box.width + box.height - corner - kDotSize) continue;
      lines.push_back({{box.x + x, box.y + y}, {box.x + x + kDotSize, box.y + y}});
    }
  }
  return lines;
}

std::size_t layersOf(const PictureItem& item) {
  if (item.kind != Kind::Stack) return 1;
  return item.isOpen ? kMostLayers : std::min(item.count, kMostLayers);
}

bool showsBack(const PictureItem& item) {
  return item.kind != Kind::Gap && item.twoSided && !item.bothSides;
}

bool showsCount(const PictureItem& item) {
  return item.kind == Kind::Gap || (item.kind == Kind::Stack && !item.isOpen);
}

// A range too long for one line goes on two: how many bytes of it on the first.
std::size_t bytesOnFirstLine(const std::string& number) {
  constexpr std::size_t kLongest = 5;
  return lengthOf(number) > kLongest ? afterDash(number) : 0;
}

}  // namespace

double widthOf(const PictureItem& item) {
  if (item.kind == Kind::Gap) return kDotsWidth;
  return kSheetWidth + kStep * static_cast<double>(layersOf(item) - 1);
}

double widestItem() {
  return kSheetWidth + kOverlap;
}

double heightOf(const PictureItem& item) {
  const double height = kOverlap + kSheetHeight + kBackDistance + kBackHeight;
  return showsBack(item) && showsCount(item) ? height + kCountHeight : height;
}

void PictureDrawing::item(const PictureItem& item) {
  if (item.kind == Kind::Gap) return gap(item);
  const double top = item.y + kOverlap;
  const double corner = item.twoSided ? kCorner : 0;
  for (std::size_t layer = layersOf(item) - 1; layer > 0; --layer) {
    const double shift = kStep * static_cast<double>(layer);
    const Path behind = outline({item.x + shift, top - shift, kSheetWidth, kSheetHeight}, corner);
    area(Paint::Paper, item.paper, behind);
    lines(Paint::Edge, item.paper, {closed(behind)}, kEdgeWidth);
  }
  const Box box = {item.x, top, kSheetWidth, kSheetHeight};
  sheet(box, item.paper, corner);
  if (item.twoSided) fold(box, item.paper);
  front(box, item.front);

  Box below = {item.x + (kSheetWidth - kBackWidth) / 2, top + kSheetHeight + kBackDistance,
               kBackWidth, kBackHeight};
  if (showsBack(item)) {
    back(below, item.paper, item.back);
    below.y += kCountHeight + 1;
  }
  if (showsCount(item))
    text(Paint::Caption, below.centre(), kTimes + std::to_string(item.count), kCountSize);
}

void PictureDrawing::gap(const PictureItem& item) {
  const double middle = item.x + kDotsWidth / 2;
  const double bottom = item.y + kOverlap + kSheetHeight;
  text(Paint::Caption, {middle, bottom - kSheetHeight / 2}, kDots, kDotsSize);
  text(Paint::Caption, {middle, bottom + kBackDistance + kBackHeight / 2},
       kTimes + std::to_string(item.count), kCountSize);
}

void PictureDrawing::paper(const Box& box, PicturePaper paper) {
  sheet(box, paper, 0);
}

void PictureDrawing::caption(Point at, const std::string& text, double size) {
  this->text(Paint::Caption, at, text, size, Shape::Anchor::Begin);
}

std::vector<Shape> PictureDrawing::take() {
  return std::exchange(shapes_, {});
}

void PictureDrawing::area(Paint paint, PicturePaper paper, Path path) {
  shapes_.push_back({Shape::Kind::Area, paint, paper, {std::move(path)}});
}

void PictureDrawing::lines(Paint paint, PicturePaper paper, std::vector<Path> paths, double width) {
  shapes_.push_back({Shape::Kind::Lines, paint, paper, std::move(paths), width});
}

void PictureDrawing::text(Paint paint, Point at, const std::string& text, double size,
                          Shape::Anchor anchor) {
  shapes_.push_back({Shape::Kind::Text, paint, PicturePaper::Body, {{at}}, size, text, anchor});
}

// Paper with its pattern.
void PictureDrawing::sheet(const Box& box, PicturePaper paper, double corner) {
  area(Paint::Paper, paper, outline(box, corner));
  if (paper == PicturePaper::Cover)
    lines(Paint::Pattern, paper, hatching(box, corner), kPatternWidth);
  if (paper == PicturePaper::Insert) lines(Paint::Pattern, paper, dots(box, corner), kDotSize);
  lines(Paint::Edge, paper, {closed(outline(box, corner))}, kEdgeWidth);
}

// The corner of a sheet that has a back, turned up.
void PictureDrawing::fold(const Box& box, PicturePaper paper) {
  const double right = box.x + box.width;
  const double bottom = box.y + box.height;
  const Path path = {
      {right, bottom - kCorner}, {right - kCorner, bottom - kCorner}, {right - kCorner, bottom}};
  area(Paint::Fold, paper, path);
  lines(Paint::Edge, paper, {closed(path)}, kEdgeWidth);
}

void PictureDrawing::front(const Box& box, const std::string& number) {
  if (number.empty()) return;
  Box block = box.inset(5);
  block.height -= kCorner - 2;
  area(Paint::Block, PicturePaper::Body, outline(block, 0));

  std::vector<Path> hints;
  const auto hintAt = [&hints, &block](double y) {
    hints.push_back({{block.x + 3, block.y + y}, {block.x + block.width - 3, block.y + y}});
  };
  const std::size_t split = bytesOnFirstLine(number);
  hintAt(4);
  hintAt(block.height - 4);
  if (split == 0) {
    hintAt(8);
    hintAt(block.height - 8);
  }
  lines(Paint::Lines, PicturePaper::Body, hints, 1);
  this->number(block.inset(1), number.substr(0, split), number.substr(split));
}

void PictureDrawing::back(const Box& box, PicturePaper paper, const std::string& number) {
  sheet(box, paper, 0);
  if (number.empty()) return;
  const Box block = box.inset(2.5);
  area(Paint::Block, PicturePaper::Body, outline(block, 0));
  this->number(block, {}, number);
}

// As large as there is room, on one line or two.
void PictureDrawing::number(const Box& box, const std::string& first, const std::string& second) {
  const double widest = std::max(publishing::widthOf(first, 1), publishing::widthOf(second, 1));
  const double largest = first.empty() ? kLargestNumber : kLargestOnTwoLines;
  const double size = std::min({largest, box.width / widest, box.height - 1});
  const Point centre = box.centre();
  const double apart = first.empty() ? 0 : size * 0.55;
  if (!first.empty()) text(Paint::Number, {centre.x, centre.y - apart}, first, size);
  text(Paint::Number, {centre.x, centre.y + apart}, second, size);
}

}  // namespace publishing
