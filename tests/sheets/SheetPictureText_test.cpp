// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPictureText.h"

#include <gtest/gtest.h>

namespace publishing {
namespace {

TEST(SheetPictureText, CharactersAreCountedNotBytes) {
  EXPECT_EQ(lengthOf(""), 0U);
  EXPECT_EQ(lengthOf("12\u201334"), 5U);
  EXPECT_EQ(lengthOf("Größe"), 5U);
}

TEST(SheetPictureText, WideScriptsTakeMoreRoom) {
  EXPECT_DOUBLE_EQ(widthOf("ab", 10), 12.8);
  EXPECT_DOUBLE_EQ(widthOf("\u2013", 10), 6.4);
  EXPECT_DOUBLE_EQ(widthOf("\u7d19\u7d19", 10), 20);
}

TEST(SheetPictureText, WhatFitsStaysWhole) {
  EXPECT_EQ(fitted("abc", 10, 19.2), "abc");
  EXPECT_EQ(fitted("", 10, 0), "");
}

TEST(SheetPictureText, WhatDoesNotFitIsCutBetweenCharacters) {
  EXPECT_EQ(fitted("abcdef", 10, 20), "ab\u2026");
  EXPECT_EQ(fitted("\u7d19\u7d19\u7d19", 10, 20), "\u7d19\u2026");
  EXPECT_EQ(fitted("abc", 10, 0), "\u2026");
}

TEST(SheetPictureText, BytesThatAreNoUTF8DoNoHarm) {
  EXPECT_EQ(lengthOf("\x80\x80"), 1U);
  EXPECT_EQ(lengthOf("\xff\xff"), 2U);
  EXPECT_EQ(fitted("\xff\xff\xff\xff", 10, 25), "\xff\u2026");
}

TEST(SheetPictureText, FindsThePlaceBehindADash) {
  EXPECT_EQ(afterDash("10\u201320"), 5U);
  EXPECT_EQ(afterDash("10-20"), 0U);
}

}  // namespace
}  // namespace publishing
