// SPDX-License-Identifier: Apache-2.0
// The shapes of one sheet, stack or gap at its place in a picture.
#pragma once

#include <string>
#include <vector>

#include "sheets/SheetPicture.h"

namespace publishing {

struct PictureBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  [[nodiscard]] PictureBox inset(double by) const {
    return {x + by, y + by, width - 2 * by, height - 2 * by};
  }
  [[nodiscard]] PicturePoint centre() const { return {x + width / 2, y + height / 2}; }
};

// How much room an item takes; the widest is as wide as widestItem().
double widthOf(const PictureItem& item);
double widestItem();
double heightOf(const PictureItem& item);

class PictureDrawing {
 public:
  // At its place, which the item has already.
  void item(const PictureItem& item);

  // A piece of paper.
  void paper(const PictureBox& box, PicturePaper paper);

  // A text beside the sheets that begins at that point of its middle line.
  void caption(PicturePoint at, const std::string& text, double size);

  // The shapes so far; the drawing is empty afterwards.
  std::vector<PictureShape> take();

 private:
  using Path = std::vector<PicturePoint>;

  void area(PicturePaint paint, PicturePaper paper, Path path);
  void lines(PicturePaint paint, PicturePaper paper, std::vector<Path> paths, double width);
  void text(PicturePaint paint, PicturePoint at, const std::string& text, double size,
            PictureShape::Anchor anchor = PictureShape::Anchor::Middle);
  void sheet(const PictureBox& box, PicturePaper paper, double corner);
  void fold(const PictureBox& box, PicturePaper paper);
  void front(const PictureBox& box, const std::string& number);
  void back(const PictureBox& box, PicturePaper paper, const std::string& number);
  void number(const PictureBox& box, const std::string& first, const std::string& second);
  void gap(const PictureItem& item);

  std::vector<PictureShape> shapes_;
};

}  // namespace publishing
