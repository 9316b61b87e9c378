// SPDX-License-Identifier: Apache-2.0
// A picture of the sheets of one set, as shapes that any painter can draw: the print dialogs with
// their toolkits, writePictureSVG as a file.
//
// Sheets stand in reading order, wrapped to rows. Each shows its front: a text block with the page
// number, or nothing on a blank side. A sheet of a two-sided job has a cut corner and its back,
// small, below. Like sheets that follow each other are one stack with the range of their pages and
// their number below. Papers differ by colour and by pattern.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "sheets/Sheet.h"
#include "sheets/SheetPlan.h"

namespace publishing {

struct PicturePoint {
  double x = 0;
  double y = 0;
};

// Which paper a shape belongs to: that of the body, of the covers or of the inserts. Inserts on
// the covers' medium look like covers, whatever is on the body's medium looks like the body.
enum class PicturePaper { Body, Cover, Insert };

// What a shape is drawn with. Papers keep their colours in dark and in light surroundings; Caption
// stands on the background and should have the colour of the surrounding text.
enum class PicturePaint {
  Paper,    // a sheet's surface
  Edge,     // its outline
  Pattern,  // what tells papers apart without colour
  Fold,     // the turned corner of a two-sided sheet
  Block,    // the printed part of a side
  Lines,    // lines of text that are only hinted at
  Number,   // page numbers
  Caption   // texts beside the sheets
};

struct PictureColour {
  int red = 0;  // 0 to 255
  int green = 0;
  int blue = 0;
};

// For light surroundings.
PictureColour colourOf(PicturePaint paint, PicturePaper paper);

struct PictureShape {
  enum class Kind {
    Area,   // one closed polygon, filled
    Lines,  // any number of open lines, stroked with `size` as their width
    Text    // one line of text, `size` high, beginning at, around or ending at its only point,
            // which lies on the text's middle line
  };
  enum class Anchor { Begin, Middle, End };

  Kind kind = Kind::Area;
  PicturePaint paint = PicturePaint::Paper;
  PicturePaper paper = PicturePaper::Body;
  std::vector<std::vector<PicturePoint>> paths;
  double size = 0;
  std::string text = {};  // UTF-8
  Anchor anchor = Anchor::Middle;
};

// What stands for one sheet, or for several.
struct PictureItem {
  enum class Kind {
    Sheet,
    Stack,  // like sheets
    Gap     // sheets of any kind, left out because there is no room: "…"
  };

  Kind kind = Kind::Sheet;
  SheetRole role = SheetRole::Body;
  PicturePaper paper = PicturePaper::Body;
  // Its place among the plan's sheets, and how many they are.
  std::size_t first = 0;
  std::size_t count = 1;
  // How many sheets is not known.
  bool isOpen = false;
  bool twoSided = false;
  // Page numbers as they are shown: "5", "2–4", "n"; empty on a blank side. A stack whose sheets
  // are printed on both sides has the range of all its pages on its front, and bothSides is set.
  std::string front = {};
  std::string back = {};
  bool bothSides = false;

  // The place in the picture where a pointer finds it.
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

struct SheetPicture {
  double width = 0;
  double height = 0;
  std::vector<PictureItem> items;
  std::vector<PictureShape> shapes;  // in the order in which they are drawn
};

struct PictureOptions {
  // Of the picture, in units of about a screen pixel; at least one sheet has room in a row.
  double width = 840;
  // What has no place in so many rows is left out in the middle: "…". At least 1.
  int mostRows = 6;
  // The first sheet stands at the right.
  bool rightToLeft = false;
  // Above the sheets; none when empty.
  std::string title = {};
  // Below the sheets: each paper with its name and its number of sheets in all copies.
  bool hasLegend = true;
  // Names of media by keyword, for the legend; the keyword stands in for a name that is missing.
  std::map<std::string, std::string> mediumNames = {};
  // The name of the body's medium; without one its sheets are only counted.
  std::string bodyMediumName = {};
};

// The picture of a plan: exact.
SheetPicture pictureOf(const SheetPlan& plan, const PictureOptions& options);

// The picture of a job whose number of pages is not known: covers, inserts and the body between
// them as in a long document, the body's end as "…", the last page as "n". Pages that are listed
// above kLastSchemePage are left out.
SheetPicture schemeOf(const SheetOrder& order, const PictureOptions& options);

inline constexpr int kLastSchemePage = 2000;

}  // namespace publishing
