// SPDX-License-Identifier: Apache-2.0
#include "Publishing/trace/NextStepEncoding.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/unistr.h>

namespace publishing {
namespace {

std::string utf8(char32_t character) {
  std::string text;
  icu::UnicodeString(static_cast<UChar32>(character)).toUTF8String(text);
  return text;
}

TEST(NextStepEncoding, KeepsASCII) {
  for (char32_t character = 0; character < 0x80; ++character) {
    EXPECT_EQ(nextStepBytes(utf8(character)), std::string(1, static_cast<char>(character)));
  }
  EXPECT_EQ(nextStepBytes(""), "");
}

TEST(NextStepEncoding, HasItsOwnPlacesAboveASCII) {
  const std::vector<std::pair<char32_t, char>> cases = {
      {0x00A0, '\x80'}, {0x00C0, '\x81'}, {0x00D6, '\x96'}, {0x00D9, '\x97'}, {0x00B5, '\x9d'},
      {0x00A9, '\xa0'}, {0x2044, '\xa4'}, {0x0192, '\xa6'}, {0x2019, '\xa9'}, {0xFB01, '\xae'},
      {0x2026, '\xbc'}, {0x00B4, '\xc2'}, {0x2014, '\xd0'}, {0x00E0, '\xd5'}, {0x0141, '\xe8'},
      {0x0152, '\xea'}, {0x0131, '\xf5'}, {0x00FC, '\xf6'}, {0x00DF, '\xfb'}, {0x00FF, '\xfd'}};
  for (const auto& [character, byte] : cases) {
    EXPECT_EQ(nextStepBytes(utf8(character)), std::string(1, byte)) << utf8(character);
  }
}

TEST(NextStepEncoding, GivesEachByteUpToFDToExactlyOneCharacter) {
  std::set<std::string> bytes;
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) continue;
    if (const auto byte = nextStepBytes(utf8(character))) {
      EXPECT_EQ(byte->size(), 1U);
      EXPECT_TRUE(bytes.insert(*byte).second) << utf8(character);
    }
  }
  EXPECT_EQ(bytes.size(), 0xFEU);
  EXPECT_FALSE(bytes.contains("\xfe"));
  EXPECT_FALSE(bytes.contains("\xff"));
}

TEST(NextStepEncoding, RefusesATextWithOneForeignCharacter) {
  for (const char* text : {"\u20ac", "caf\u00e9 \u4e2d", "\u0080", "\ufffd", "😀", "e\u0301"}) {
    EXPECT_EQ(nextStepBytes(text), std::nullopt) << text;
  }
}

TEST(NextStepEncoding, RefusesBytesThatAreNotUTF8) {
  for (const char* text : {"\xff", "a\xc3", "\xed\xa0\x80", "\xc0\x80", "\x80"}) {
    EXPECT_EQ(nextStepBytes(text), std::nullopt);
  }
}

TEST(NextStepEncoding, EncodesWholeTexts) {
  EXPECT_EQ(nextStepBytes("Thick (épais)\n"), "Thick (\xddpais)\n");
}

}  // namespace
}  // namespace publishing
