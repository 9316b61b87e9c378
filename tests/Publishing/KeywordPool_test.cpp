#include "Publishing/KeywordPool.h"

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
  EXPECT_EQ(pool.add("InputSlot"), 0U);
  EXPECT_EQ(pool.add("Duplex"), 1U);
  EXPECT_EQ(pool.add("InputSlot"), 0U);
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
    pool.add(first, second);
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
  pool.add("A", "B");
  pool.add("A");
  EXPECT_EQ(pool.find(std::string("A\0B", 3)), KeywordPool::kNone);
  EXPECT_EQ(pool.find("A", std::string("\0B", 2)), KeywordPool::kNone);
  EXPECT_EQ(pool.find(std::string("A\0", 2)), KeywordPool::kNone);
}

TEST(KeywordPool, EndsFirstKeywordsWithANUL) {
  KeywordPool pool;
  pool.add("A", "x");
  pool.add("B");
  EXPECT_STREQ(pool.first(0).data(), "A");
  EXPECT_STREQ(pool.first(1).data(), "B");
}

TEST(KeywordPool, FindsEachOfManyAfterShrinkingAndGrowing) {
  KeywordPool pool;
  const auto name = [](KeywordPool::Id id) {
    return std::string(id % 50, 'k') + std::to_string(id);
  };
  for (KeywordPool::Id id = 0; id < 5000; ++id) {
    if (id % 1000 == 0) pool.shrink();
    ASSERT_EQ(pool.add(name(id), name(id + 1)), id);
  }
  for (KeywordPool::Id id = 0; id < 5000; ++id) {
    ASSERT_EQ(pool.find(name(id), name(id + 1)), id);
    ASSERT_EQ(pool.find(name(id)), KeywordPool::kNone);
  }
}

}  // namespace
}  // namespace publishing
