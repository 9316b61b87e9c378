// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPictureSVG.h"

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include <glib.h>
#include <gmock/gmock.h>

#include "tests/sheets/SheetExamples.h"
#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

SheetPicture picture(const PictureOptions& options) {
  return pictureOf(planSheets(orderOf(kTwoSided + covers("2", "5") + inserts("0", "5,8")), 24),
                   options);
}

// The message of a fault, empty when the document is well-formed.
std::string faultIn(const std::string& xml) {
  const GMarkupParser parser = {};
  GMarkupParseContext* context =
      g_markup_parse_context_new(&parser, GMarkupParseFlags{}, nullptr, nullptr);
  GError* error = nullptr;
  const bool isSound =
      g_markup_parse_context_parse(context, xml.data(), gssize(xml.size()), &error) &&
      g_markup_parse_context_end_parse(context, &error);
  std::string fault = isSound ? "" : error->message;
  g_clear_error(&error);
  g_markup_parse_context_free(context);
  return fault;
}

TEST(SheetPictureSVG, IsAStandaloneDocument) {
  const std::string svg = writePictureSVG(picture({.title = "report.pdf"}), "report.pdf");
  EXPECT_THAT(svg, StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\""));
  EXPECT_THAT(svg, AllOf(HasSubstr("<title>report.pdf</title>"), EndsWith("</svg>\n")));
  EXPECT_THAT(svg, Not(HasSubstr("href")));
  EXPECT_EQ(faultIn(svg), "");
}

TEST(SheetPictureSVG, ShowsNumbersAndRanges) {
  const std::string svg = writePictureSVG(picture({}), "");
  EXPECT_THAT(
      svg, AllOf(HasSubstr(">1</text>"), HasSubstr(">8\u201323</text>"), HasSubstr(">24</text>")));
  EXPECT_THAT(svg, Not(HasSubstr("<title>")));
}

TEST(SheetPictureSVG, TextsAreEscaped) {
  const std::string text = "a<b>&c\"d'</text><script>alert(1)</script>]]>";
  const std::string svg = writePictureSVG(
      picture({.title = text, .mediumNames = {{"Leather", text}}, .bodyMediumName = text}), text);
  EXPECT_EQ(faultIn(svg), "");
  EXPECT_THAT(svg, Not(HasSubstr("<script")));
  EXPECT_THAT(svg, HasSubstr("<title>a&lt;b&gt;&amp;c\"d'&lt;/text&gt;"));
}

TEST(SheetPictureSVG, WhatIsNoCharacterOfXMLIsReplaced) {
  const std::string texts[] = {std::string("a\0b", 3),
                               "a\x01!",
                               "a\xff!",
                               "a\xc3",
                               "a\xc0\x80!",
                               "a\xe2\x82",
                               "a\xed\xa0\x80",
                               "a\xf4\x90\x80\x80",
                               "a\xef\xbf\xbf",
                               "a\xf0\x80\x80\x80",
                               "a\xf5",
                               "\x80"};
  for (const std::string& text : texts) {
    const std::string svg = writePictureSVG(picture({.title = text}), text);
    EXPECT_EQ(faultIn(svg), "") << testing::PrintToString(text);
    EXPECT_THAT(svg, HasSubstr("\uFFFD")) << testing::PrintToString(text);
  }
}

TEST(SheetPictureSVG, SoundTextsStayAsTheyAre) {
  const std::string text = "Größe “A” 紙 \U0001F4C4";
  EXPECT_THAT(writePictureSVG(picture({.title = text}), text),
              AllOf(HasSubstr("<title>" + text + "</title>"), HasSubstr(">" + text + "</text>")));
}

// The pictures of docs/sheets.md. The target update-picture-golden writes them anew.

// "front-outside" of "FrontOutside".
std::string fileNameOf(const std::string& name) {
  std::string file;
  for (const char letter : name) {
    const auto byte = static_cast<unsigned char>(letter);
    if (std::isupper(byte) != 0 && !file.empty()) file += '-';
    file += static_cast<char>(std::tolower(byte));
  }
  return file;
}

class SheetPictureGoldenSVG : public ::testing::TestWithParam<SheetExample> {};

TEST_P(SheetPictureGoldenSVG, IsThePictureInTheDocuments) {
  const SheetExample& example = GetParam();
  const PictureOptions options = {.mostRows = 1, .hasLegend = false};
  const std::string svg = writePictureSVG(
      pictureOf(planSheets(orderOf(example.options), example.pages), options), example.sheets);
  const std::string path =
      TEST_DATA "/../../docs/pictures/sheets-" + fileNameOf(example.name) + ".svg";
  if (std::getenv("UPDATE_GOLDEN") != nullptr) std::ofstream(path) << svg;
  std::ifstream file(path);
  EXPECT_EQ(svg, std::string(std::istreambuf_iterator<char>(file), {}));
}

INSTANTIATE_TEST_SUITE_P(Examples, SheetPictureGoldenSVG, ::testing::ValuesIn(sheetExamples()),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace publishing
