#include "Publishing/ppd/KeywordPool.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace publishing {
namespace {

TEST(KeywordPool, NumbersKeywordsInTheOrderTheyCame) {
  KeywordPool pool;
  EXPECT_EQ(pool.size(), 0U);
  EXPECT_EQ(pool.find("InputSlot"), KeywordPool::kNone);
  EXPECT_EQ(pool.add(Keyword("InputSlot")), 0U);
  EXPECT_EQ(pool.add(Keyword("Duplex")), 1U);
  EXPECT_EQ(pool.add(Keyword("InputSlot")), 0U);
  EXPECT_EQ(pool.find("Duplex"), 1U);
  EXPECT_EQ(pool.first(1), "Duplex");
  EXPECT_EQ(pool.second(1), "");
  EXPECT_EQ(pool.size(), 2U);
}

TEST(KeywordPool, TellsPairsApart) {
  const std::vector<std::pair<std::string, std::string>> pairs = {{"", ""},
                                                                  {"A", ""},
                                                                  {"", "A"},
                                                                  {"A", "A"},
                                                                  {"A", "B"},
                                                                  {"B", "A"},
                                                                  {"AB", ""},
                                                                  {"", "AB"},
                                                                  {"a", "b"},
                                                                  {"A", "BC"},
                                                                  {"AB", "C"},
                                                                  {"12345678", "12345678"},
                                                                  {"123456781", "2345678"},
                                                                  {"1234567", "812345678"}};
  KeywordPool pool;
  for (const auto& [first, second] : pairs)
    pool.add(Keyword(first), Keyword(second));
  ASSERT_EQ(pool.size(), pairs.size());
  for (KeywordPool::Id id = 0; id < pool.size(); ++id) {
    EXPECT_EQ(pool.first(id), pairs[id].first);
    EXPECT_EQ(pool.second(id), pairs[id].second);
    EXPECT_EQ(pool.find(pairs[id].first, pairs[id].second), id);
  }
  EXPECT_EQ(pool.find("A"), 1U);
}

TEST(KeywordPool, FindsNothingThatHoldsANUL) {
  KeywordPool pool;
  pool.add(Keyword("A"), Keyword("B"));
  pool.add(Keyword("A"));
  EXPECT_EQ(pool.find(std::string("A\0B", 3)), KeywordPool::kNone);
  EXPECT_EQ(pool.find("A", std::string("\0B", 2)), KeywordPool::kNone);
  EXPECT_EQ(pool.find(std::string("A\0", 2)), KeywordPool::kNone);
}

TEST(KeywordPool, EndsFirstKeywordsWithANUL) {
  KeywordPool pool;
  pool.add(Keyword("A"), Keyword("x"));
  pool.add(Keyword("B"));
  EXPECT_STREQ(pool.first(0).data(), "A");
  EXPECT_STREQ(pool.first(1).data(), "B");
}

TEST(KeywordPool, FindsEachWhateverRoomIsMade) {
  for (const std::size_t room : {0, 1, 2, 3, 100}) {
    KeywordPool pool;
    pool.reserve(room);
    EXPECT_EQ(pool.find("A"), KeywordPool::kNone);
    for (const char* keyword : {"A", "B", "C"})
      pool.add(Keyword(std::string_view(keyword)));
    pool.reserve(room);
    EXPECT_EQ(pool.find("C"), 2U) << room;
    EXPECT_EQ(pool.find("D"), KeywordPool::kNone) << room;
  }
}

TEST(KeywordPool, TellsApartWhatBeginsWithTheSameSixteenBytes) {
  KeywordPool pool;
  const std::vector<std::string> keywords = {"1234567890123456", "12345678901234567",
                                             "1234567890123456A", "12345678901234567890", "12"};
  for (const std::string& first : keywords)
    for (const std::string& second : keywords)
      pool.add(Keyword(first), Keyword(second));
  ASSERT_EQ(pool.size(), keywords.size() * keywords.size());
  KeywordPool::Id id = 0;
  for (const std::string& first : keywords) {
    for (const std::string& second : keywords) {
      EXPECT_EQ(pool.find(first, second), id) << first << ' ' << second;
      EXPECT_TRUE(pool.holds(id, Keyword(first), Keyword(second)));
      ++id;
    }
  }
  EXPECT_EQ(pool.find("1234567890123456B", "1234567890123456"), KeywordPool::kNone);
  EXPECT_FALSE(pool.holds(0, Keyword("1234567890123456B"), Keyword("1234567890123456")));
}

TEST(KeywordPool, FindsEachOfManyAfterShrinkingAndGrowing) {
  KeywordPool pool;
  const auto name = [](KeywordPool::Id id) {
    return std::string(id % 50, 'k') + std::to_string(id);
  };
  for (KeywordPool::Id id = 0; id < 5000; ++id) {
    if (id % 1000 == 0) pool.shrink();
    ASSERT_EQ(pool.add(Keyword(name(id)), Keyword(name(id + 1))), id);
  }
  for (KeywordPool::Id id = 0; id < 5000; ++id) {
    ASSERT_EQ(pool.find(name(id), name(id + 1)), id);
    ASSERT_EQ(pool.find(name(id)), KeywordPool::kNone);
  }
}

}  // namespace
}  // namespace publishing
