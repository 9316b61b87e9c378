// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPicture.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>

#include <gmock/gmock.h>

#include "sheets/SheetPictureText.h"
#include "tests/sheets/PictureText.h"
#include "tests/sheets/SheetExamples.h"
#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

const PictureOptions kBare = {.hasLegend = false};

SheetPicture pictureOf(const Options& job, int pages, const PictureOptions& options = kBare) {
  return pictureOf(planSheets(orderOf(job), pages), options);
}

std::string items(const Options& job, int pages) {
  return itemsIn(pictureOf(job, pages));
}

std::string scheme(const Options& job) {
  return itemsIn(schemeOf(orderOf(job), kBare));
}

std::string pagesTo(int last, int step = 1) {
  std::string list;
  for (int page = 2; page <= last; page += step)
    list += std::to_string(page) + ",";
  return list;
}

// What is one item.

TEST(SheetPicture, FullSheetsOfTheBodyAreAStack) {
  EXPECT_EQ(items(kTwoSided, 10), "B1-10 x5");
  EXPECT_EQ(items(kOneSided, 10), "B1-10 x10");
}

TEST(SheetPicture, ASheetWithABlankBackStandsAlone) {
  EXPECT_EQ(items(kTwoSided, 5), "B1-4 x2, B5|-");
}

TEST(SheetPicture, ASheetBetweenOthersShowsBothPages) {
  EXPECT_EQ(items(kTwoSided + inserts("0", "3,5"), 5), "B1|2, I-|-, B3|4, I-|-, B5|-");
}

TEST(SheetPicture, CoversStandAlone) {
  EXPECT_EQ(items(kTwoSided + covers("2", "5"), 10), "C1|-, B2-9 x4, C-|10");
  EXPECT_EQ(items(kOneSided + covers("2", "9"), 2), "C1, C2");
  EXPECT_EQ(items(kTwoSided + covers("2", "15"), 4), "C1|2, C3|4");
}

TEST(SheetPicture, AFewInsertsStayInSight) {
  EXPECT_EQ(items(kTwoSided + inserts("1", "12,13,14"), 14),
            "B1-10 x5, B11|-, I12|-, I13|-, I14|-");
}

TEST(SheetPicture, ManyInsertsInARowAreAStack) {
  EXPECT_EQ(items(kTwoSided + inserts("1", pagesTo(300)), 300), "B1|-, I2-300|- x299");
  EXPECT_EQ(items(kTwoSided + inserts("2", pagesTo(5)), 5), "B1|-, I-|2-5 x4");
  EXPECT_EQ(items(kTwoSided + inserts("3", pagesTo(8, 2)), 9), "B1|-, I2-9 x4");
  EXPECT_EQ(items(kOneSided + inserts("1", pagesTo(5)), 5), "B1, I2-5 x4");
}

TEST(SheetPicture, WhatHasNoPlaceIsLeftOutInTheMiddle) {
  const PictureOptions options = {.width = 600, .mostRows = 1, .hasLegend = false};
  EXPECT_EQ(itemsIn(pictureOf(kTwoSided + inserts("0", pagesTo(300)), 300, options)),
            "B1|-, I-|-, B2|-, I-|-, B3|-, I-|-, ... x591, I-|-, B300|-");
}

TEST(SheetPicture, AJobWithoutPagesHasNoItems) {
  EXPECT_THAT(pictureOf(covers("2", "5"), 0).items, IsEmpty());
}

// Jobs whose number of pages is not known.

TEST(SheetPicture, ASchemeEndsInThePageN) {
  EXPECT_EQ(scheme(kTwoSided), "B1-n x...");
  EXPECT_EQ(scheme(kOneSided + covers("1", "1")), "C1, B2-n x...");
  EXPECT_EQ(scheme(kTwoSided + covers("2", "32")), "C-|-, B1-n x..., C-|-");
}

TEST(SheetPicture, ASchemeGivesTheBackCoverTheLastPages) {
  EXPECT_EQ(scheme(kTwoSided + covers("2", "5")), "C1|-, B2-... x..., C-|n");
  EXPECT_EQ(scheme(kTwoSided + covers("2", "15")), "C1|2, B3-... x..., Cn-1|n");
  EXPECT_EQ(scheme(kOneSided + covers("2", "9")), "C1, B2-... x..., Cn");
}

TEST(SheetPicture, ASchemeShowsTheInsertsInTheirPlaces) {
  EXPECT_EQ(scheme(kTwoSided + covers("2", "5") + inserts("0", "5,8")),
            "C1|-, B2|3, B4|-, I-|-, B5|6, B7|-, I-|-, B8-... x..., C-|n");
  EXPECT_EQ(scheme(kTwoSided + inserts("3", "5")), "B1-4 x2, I5|6, B7-n x...");
}

TEST(SheetPicture, ASchemeLeavesPagesOutThatNoDocumentMayHave) {
  EXPECT_EQ(scheme(kOneSided + inserts("1", "3,2147483647")), "B1-2 x2, I3, B4-n x...");
}

// Papers.

std::vector<PicturePaper> papers(const Options& job) {
  std::vector<PicturePaper> papers;
  for (const PictureItem& item : pictureOf(job, 4).items)
    papers.push_back(item.paper);
  return papers;
}

TEST(SheetPicture, PapersAreToldApart) {
  const Options job = kOneSided + covers("1", "1") + inserts("1", "3");
  using enum PicturePaper;
  EXPECT_THAT(papers(job), ::testing::ElementsAre(Cover, Body, Insert, Body));
  EXPECT_THAT(papers(job + Options{{"PageMediaType", "Leather"}}),
              ::testing::ElementsAre(Cover, Body, Cover, Body));
  EXPECT_THAT(papers(job + Options{{"CoverMediaType", "PrnDef"}, {"PageMediaType", "PrnDef"}}),
              ::testing::ElementsAre(Body, Body, Body, Body));
}

TEST(SheetPicture, PapersDifferByPatternToo) {
  const auto patterned = [](const Options& job) {
    std::set<PicturePaper> papers;
    for (const PictureShape& shape : pictureOf(job, 4).shapes)
      if (shape.paint == PicturePaint::Pattern) papers.insert(shape.paper);
    return papers;
  };
  EXPECT_EQ(patterned(kTwoSided + covers("1", "1") + inserts("1", "3")),
            (std::set{PicturePaper::Cover, PicturePaper::Insert}));
}

std::vector<std::string> texts(const SheetPicture& picture) {
  std::vector<std::string> texts;
  for (const PictureShape& shape : picture.shapes)
    if (shape.kind == PictureShape::Kind::Text) texts.push_back(shape.text);
  return texts;
}

TEST(SheetPicture, LegendNamesThePapersAndCountsTheirSheetsInAllCopies) {
  const PictureOptions options = {.mediumNames = {{"Leather", "Leather Grain"}},
                                  .bodyMediumName = "Tray 1"};
  const Options job = kTwoSided + covers("2", "5") + inserts("0", "3") + Options{{"copies", "3"}};
  const std::vector<std::string> shown = texts(pictureOf(job, 10, options));
  EXPECT_THAT(shown, Contains("6 \u00d7 Leather Grain"));
  EXPECT_THAT(shown, Contains("15 \u00d7 Tray 1"));
  EXPECT_THAT(shown, Contains("3 \u00d7 Thick"));
  EXPECT_THAT(shown, Contains("\u00d73"));
  EXPECT_THAT(texts(schemeOf(orderOf(job), options)), Contains("\u2026 \u00d7 Tray 1"));
}

TEST(SheetPicture, TitleAndLegendAreOnlyThereWhenAskedFor) {
  const std::vector<std::string> shown = texts(pictureOf(kOneSided + covers("1", "1"), 1));
  EXPECT_THAT(shown, ::testing::ElementsAre("1"));
  const PictureOptions options = {.title = "report.pdf", .hasLegend = false};
  EXPECT_THAT(texts(pictureOf(kOneSided, 1, options)), Contains("report.pdf"));
}

TEST(SheetPicture, TextsThatAreTooLongAreCut) {
  const PictureOptions options = {.width = 200, .title = std::string(1000, 'x')};
  const SheetPicture picture = pictureOf(kOneSided, 1, options);
  EXPECT_LE(picture.width, 200);
  EXPECT_THAT(texts(picture), Not(Contains(options.title)));
}

// Whatever the job: nothing is drawn outside or over its neighbours, no sheet is forgotten.

class SheetPictureOfAnyJob : public ::testing::TestWithParam<bool> {};

void expectSound(const SheetPicture& picture, std::size_t sheets) {
  std::size_t next = 0;
  for (const PictureItem& item : picture.items) {
    EXPECT_EQ(item.first, next);
    next += item.count;
    for (const PictureItem& other : picture.items) {
      const bool apart = &item == &other || item.x + item.width <= other.x ||
                         other.x + other.width <= item.x || item.y + item.height <= other.y ||
                         other.y + other.height <= item.y;
      EXPECT_TRUE(apart);
    }
  }
  EXPECT_EQ(next, sheets);
  for (const PictureShape& shape : picture.shapes) {
    for (const std::vector<PicturePoint>& path : shape.paths) {
      for (const PicturePoint& point : path) {
        EXPECT_TRUE(point.x >= 0 && point.x <= picture.width);
        EXPECT_TRUE(point.y >= 0 && point.y <= picture.height);
      }
    }
  }
}

TEST_P(SheetPictureOfAnyJob, IsSound) {
  for (const double width : {0.0, 100.0, 333.0, 840.0}) {
    for (const char* sides : {"one-sided", "two-sided-long-edge"}) {
      for (const char* value : {"0", "1", "2", "3"}) {
        const Options job = Options{{"sides", sides}} + covers("2", "15") +
                            inserts(value, "3," + pagesTo(60, 7)) + Options{{"copies", "2"}};
        const PictureOptions options = {
            .width = width, .mostRows = 3, .rightToLeft = GetParam(), .title = "A title"};
        const SheetPlan plan = planSheets(orderOf(job), 1200);
        expectSound(pictureOf(plan, options), plan.sheets.size());
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Directions, SheetPictureOfAnyJob, ::testing::Bool(),
                         [](const auto& one) { return one.param ? "RightToLeft" : "LeftToRight"; });

TEST(SheetPicture, NumbersHaveRoomOnTheirSheets) {
  for (const int pages : {9, 99, 999, 99999, 2147483}) {
    for (const PictureShape& shape : pictureOf(kTwoSided + covers("2", "13"), pages).shapes) {
      if (shape.paint != PicturePaint::Number) continue;
      EXPECT_LE(widthOf(shape.text, shape.size), 34) << shape.text;
    }
  }
}

TEST(SheetPicture, RightToLeftTheFirstSheetStandsAtTheRight) {
  PictureOptions options = kBare;
  options.rightToLeft = true;
  const SheetPicture picture = pictureOf(kOneSided + covers("2", "9"), 5, options);
  EXPECT_GT(picture.items.front().x, picture.items.back().x);
}

TEST(SheetPicture, EveryPaintHasAColourOnEveryPaper) {
  std::set<std::vector<int>> colours;
  for (const auto paper : {PicturePaper::Body, PicturePaper::Cover, PicturePaper::Insert}) {
    const PictureColour colour = colourOf(PicturePaint::Paper, paper);
    colours.insert({colour.red, colour.green, colour.blue});
  }
  EXPECT_EQ(colours.size(), 3U);
}

// The shapes themselves. The target update-picture-golden writes the files anew; look at each
// difference, and at the pictures, before it is committed.

class SheetPictureGolden : public ::testing::TestWithParam<SheetExample> {};

TEST_P(SheetPictureGolden, IsDrawnAsBefore) {
  const SheetExample& example = GetParam();
  const PictureOptions options = {.title = example.name, .bodyMediumName = "Tray1/Plain"};
  const std::string dump = dumpOf(pictureOf(example.options, example.pages, options));
  const std::string path = std::string(TEST_DATA "/pictures/") + example.name + ".txt";
  if (std::getenv("UPDATE_GOLDEN") != nullptr) std::ofstream(path) << dump;
  std::ifstream file(path);
  EXPECT_EQ(dump, std::string(std::istreambuf_iterator<char>(file), {}));
}

INSTANTIATE_TEST_SUITE_P(Examples, SheetPictureGolden, ::testing::ValuesIn(sheetExamples()),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace publishing
