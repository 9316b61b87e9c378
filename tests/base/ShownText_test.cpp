// SPDX-License-Identifier: Apache-2.0
#include "base/ShownText.h"

#include <string>

#include <gtest/gtest.h>

namespace publishing {
namespace {

// Steering a terminal, turning the direction of text, hidden, or breaking lines.
const char* const kUnfit[] = {"\x1b",   "\a",     "\r",     "\b",     "\x7f",
                              "\u009b", "\u0085", "\u202e", "\u2066", "\u2028",
                              "\u2029", "\u200e", "\ufeff", "\u00ad", "\U000e0041"};

TEST(ShownText, HasNoCharacterThatActsInsteadOfBeingSeen) {
  for (const std::string unfit : kUnfit) {
    EXPECT_EQ(shown("a" + unfit + "b"), "a b") << unfit;
    EXPECT_EQ(shownLines("a\n" + unfit + "b"), "a\n b") << unfit;
  }
  EXPECT_EQ(shown("a\nb\tc"), "a b c");
}

TEST(ShownText, KeepsWhatPeopleWrite) {
  for (const char* text :
       {"Öl-Papier 5×7 (épais)", "紙", "می‌خواهم", "👩‍🔧", "עברית"}) {
    EXPECT_EQ(shown(text), text);
    EXPECT_EQ(shownLines(text), text);
    EXPECT_EQ(shownJson(text), text);
  }
}

TEST(ShownText, IsValidUTF8AndNotEndless) {
  EXPECT_EQ(shown("caf\xe9"), "caf\xef\xbf\xbd");
  EXPECT_EQ(shown(std::string(300, 'x')), std::string(200, 'x') + "...");
  EXPECT_EQ(shownLines(std::string(300, 'x')), std::string(300, 'x'));
}

TEST(ShownText, IsTheSameToAReaderOfJson) {
  EXPECT_EQ(shownJson("\"a\u202e\x7f\u009b\u2028\""), "\"a\\u202e\\u007f\\u009b\\u2028\"");
  EXPECT_EQ(shownJson("\"\U000e0041\""), "\"\\udb40\\udc41\"");
}

}  // namespace
}  // namespace publishing
