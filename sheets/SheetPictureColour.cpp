// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPicture.h"

namespace publishing {

PictureColour colourOf(PicturePaint paint, PicturePaper paper) {
  struct Colours {
    PictureColour paper;
    PictureColour edge;
    PictureColour pattern;
    PictureColour fold;
  };
  static constexpr Colours kByPaper[] = {
      {{255, 255, 255}, {128, 128, 128}, {224, 224, 224}, {236, 236, 236}},
      {{205, 168, 128}, {122, 86, 48}, {172, 130, 86}, {232, 212, 190}},
      {{246, 220, 116}, {150, 118, 12}, {206, 168, 40}, {253, 242, 196}}};
  const Colours& colours = kByPaper[static_cast<std::size_t>(paper)];
  switch (paint) {
    case PicturePaint::Paper:
      return colours.paper;
    case PicturePaint::Edge:
      return colours.edge;
    case PicturePaint::Pattern:
      return colours.pattern;
    case PicturePaint::Fold:
      return colours.fold;
    case PicturePaint::Block:
      return {255, 255, 255};
    case PicturePaint::Lines:
      return {205, 205, 205};
    case PicturePaint::Number:
      return {26, 26, 26};
    case PicturePaint::Caption:
      break;
  }
  return {58, 58, 58};
}

}  // namespace publishing
