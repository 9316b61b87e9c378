#include "Publishing/ppd/Keyword.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace publishing {
namespace {

constexpr std::size_t kField = 41;

// A PPD's field with that text, and behind its terminator what an earlier text left there.
class Field {
 public:
  explicit Field(const std::string& text, char leftOver = '\0') {
    std::memset(bytes, leftOver, kField);
    std::memcpy(bytes, text.c_str(), std::min(text.size() + 1, kField));
  }

  char bytes[kField];
};

// Of every length that a field can hold, those that end a word and fill it included.
std::vector<std::string> textsOfEveryLength() {
  std::vector<std::string> texts;
  for (std::size_t length = 0; length <= kField; ++length)
    texts.push_back(std::string("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNO").substr(0, length));
  return texts;
}

TEST(Keyword, IsWhatItsFieldHoldsUpToTheTerminator) {
  for (const std::string& text : textsOfEveryLength()) {
    for (const char leftOver : {'\0', '\1', 'x', '\x80', '\xff'}) {
      const Field field(text, leftOver);
      EXPECT_EQ(Keyword(field.bytes).text(), text);
      EXPECT_EQ(Keyword(field.bytes), Keyword(text)) << text << ' ' << int{leftOver};
      EXPECT_EQ(Keyword(field.bytes).head(), Keyword(text).head()) << text << ' ' << int{leftOver};
    }
  }
}

TEST(Keyword, DiffersFromOneThatDiffersInAnyByte) {
  for (const std::string& text : textsOfEveryLength()) {
    const Field field(text);
    for (std::size_t index = 0; index < text.size(); ++index) {
      std::string other = text;
      ++other[index];
      const Field otherField(other);
      EXPECT_FALSE(Keyword(field.bytes) == Keyword(otherField.bytes)) << text << ' ' << other;
      EXPECT_FALSE(Keyword(field.bytes) == Keyword(other)) << text << ' ' << other;
    }
  }
}

TEST(Keyword, EndsAtNoOtherByteThanNUL) {
  for (std::string text : textsOfEveryLength()) {
    for (char& byte : text) {
      for (const char tried : {'\1', '\2', '\x7f', '\x80', '\x81', '\xff'}) {
        const char before = std::exchange(byte, tried);
        const Field field(text);
        EXPECT_EQ(Keyword(field.bytes), Keyword(text)) << text.size() << ' ' << int{tried};
        EXPECT_EQ(Keyword(field.bytes).text(), text);
        byte = before;
      }
    }
  }
}

TEST(Keyword, DiffersFromItsBeginning) {
  const auto texts = textsOfEveryLength();
  for (std::size_t length = 0; length < kField; ++length) {
    const Field shorter(texts[length]);
    const Field longer(texts[length + 1]);
    EXPECT_FALSE(Keyword(shorter.bytes) == Keyword(longer.bytes)) << texts[length];
    EXPECT_FALSE(Keyword(longer.bytes) == Keyword(texts[length])) << texts[length];
  }
}

TEST(Keyword, KnowsWhetherItIsEmptyShortAndASCII) {
  struct Case {
    std::string text;
    bool empty, fitsHead, shortASCII;
  };
  const std::vector<Case> cases = {{"", true, true, true},
                                   {"A", false, true, true},
                                   {"\x7f", false, true, true},
                                   {"\x80", false, true, false},
                                   {"1234567", false, true, true},
                                   {"12345678", false, true, true},
                                   {"12345678\xc3\xa9", false, true, false},
                                   {"123456789012345", false, true, true},
                                   {"1234567\xe9", false, true, false},
                                   {"12345678901234\xe9", false, true, false},
                                   {"1234567890123456", false, false, false},
                                   {"12345678901234567", false, false, false}};
  for (const auto& [text, empty, fitsHead, shortASCII] : cases) {
    const Field field(text, 'x');
    for (const Keyword& keyword : {Keyword(field.bytes), Keyword(text)}) {
      EXPECT_EQ(keyword.isEmpty(), empty) << text;
      EXPECT_EQ(keyword.fitsHead(), fitsHead) << text;
      EXPECT_EQ(keyword.isShortASCII(), shortASCII) << text;
    }
  }
  EXPECT_TRUE(Keyword().isEmpty());
  EXPECT_EQ(Keyword().text(), "");
}

// A table of keywords is as quick as their hashes differ, also where a maker numbers its options.
TEST(Keyword, HashesKeywordsThatDifferInOnePlaceApart) {
  constexpr std::size_t kKeywords = 10'000;
  constexpr int kShift = 64 - 15;  // leaves the number of one of 32,768 slots
  const std::string_view beginning = "FinisherOptionOfTheThirdTrayBelow";
  for (std::size_t place = 0; place <= beginning.size(); ++place) {
    std::set<std::uint64_t> hashes;
    std::set<std::uint64_t> slots;
    for (std::size_t number = 0; number < kKeywords; ++number) {
      const std::string digits = std::to_string(kKeywords + number);
      const std::string text = std::string(beginning).insert(place, digits);
      const std::uint64_t hash = Keyword(text).hash();
      EXPECT_EQ(hash, Keyword(Field(text, 'x').bytes).hash()) << text;
      hashes.insert(hash);
      slots.insert(hash >> kShift);
    }
    EXPECT_EQ(hashes.size(), kKeywords) << place;
    EXPECT_GT(slots.size(), 7'000U) << place;  // by chance it would be 8,614
  }
}

TEST(Keyword, OfASmallArrayIsItsText) {
  EXPECT_EQ(Keyword("Duplex"), Keyword(std::string_view("Duplex")));
  EXPECT_EQ(Keyword("Duplex").text(), "Duplex");
  const char unterminated[] = {'A', '4'};
  EXPECT_EQ(Keyword(unterminated).text(), "A4");
}

}  // namespace
}  // namespace publishing
