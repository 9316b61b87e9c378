#include "Publishing/ppd/ConstraintTable.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "Publishing/ppd/PPDInfo.h"
#include "tests/Publishing/ppd/PPDBuilder.h"

namespace publishing {
namespace {

using test::Groups;
using test::HandmadeConstraint;
using test::HandmadePPD;
using test::oneGroup;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Directions = ConstraintTable::Directions;

ConstraintTable::ChoiceId idOf(ConstraintTable& table, const char* option, const char* choice) {
  return table.choiceId(Keyword(std::string_view(option)), Keyword(std::string_view(choice)));
}

// With the choices given marked.
MarkedChoices marks(const std::vector<std::pair<std::string, std::string>>& choices) {
  auto catalogue = std::make_shared<OptionCatalogue>();
  for (const auto& [option, choice] : choices)
    catalogue->beginOption(option);
  MarkedChoices marked(catalogue);
  for (const auto& [option, choice] : choices)
    marked.mark(catalogue->options().find(option), choice);
  return marked;
}

TEST(ConstraintTable, KnowsTheEntryThatCameLast) {
  ConstraintTable table;
  const Keyword tray("InputSlot");
  const Keyword m("M");
  const Keyword cover("CoverMediaType");
  const Keyword p("P");
  EXPECT_FALSE(table.endsWith(tray, m, cover, p));
  table.add(idOf(table, "InputSlot", "M"), idOf(table, "CoverMediaType", "P"), Directions::kBoth);
  EXPECT_TRUE(table.endsWith(tray, m, cover, p));
  const Keyword other("Other");
  EXPECT_FALSE(table.endsWith(other, m, cover, p));
  EXPECT_FALSE(table.endsWith(tray, other, cover, p));
  EXPECT_FALSE(table.endsWith(tray, m, other, p));
  EXPECT_FALSE(table.endsWith(tray, m, cover, other));
  EXPECT_FALSE(table.endsWith(cover, p, tray, m));
  table.add(idOf(table, "InputSlot", "M"), idOf(table, "CoverMediaType", "P"), Directions::kOne);
  EXPECT_FALSE(table.endsWith(tray, m, cover, p));
}

TEST(ConstraintTable, FindsTheChoicesThatItHasOnly) {
  ConstraintTable table;
  const auto id = idOf(table, "InputSlot", "M");
  EXPECT_EQ(idOf(table, "InputSlot", "M"), id);
  EXPECT_NE(idOf(table, "InputSlot", "N"), id);
  EXPECT_EQ(table.find(Keyword("InputSlot"), Keyword("M")), id);
  EXPECT_EQ(table.find(Keyword("InputSlot"), Keyword("L")), KeywordPool::kNone);
}

TEST(ConstraintTable, ForbidsByTheMarksOfTheLastTime) {
  for (const Directions directions : {Directions::kOne, Directions::kBoth}) {
    ConstraintTable table;
    table.reserve(1);
    table.add(idOf(table, "A", "a"), idOf(table, "B", "b"), directions);
    EXPECT_TRUE(table.allows("A", "a"));
    table.setMarked(marks({{"A", "a"}, {"B", "b"}, {"C", "c"}}));
    EXPECT_FALSE(table.allows("A", "a"));
    EXPECT_EQ(table.allows("B", "b"), directions == Directions::kOne);
    EXPECT_THAT(table.forbidding("A", "a"), ElementsAre(OptionChoice{"B", "b"}));
    table.add(idOf(table, "C", "c"), idOf(table, "A", "a"), directions);
    EXPECT_TRUE(table.allows("C", "c"));
    EXPECT_THAT(table.forbidding("C", "c"), IsEmpty());
    table.shrink();
    table.setMarked(marks({{"A", "a"}}));
    EXPECT_TRUE(table.allows("A", "a"));
    EXPECT_FALSE(table.allows("C", "c"));
    EXPECT_THAT(table.forbidding("A", "a"), IsEmpty());
  }
}

TEST(ConstraintTable, NamesEachForbiddingChoiceOnceFromEitherSide) {
  ConstraintTable table;
  const auto a = idOf(table, "A", "a");
  const auto b = idOf(table, "B", "b");
  const auto c = idOf(table, "C", "c");
  const auto d = idOf(table, "D", "d");
  table.add(b, a, Directions::kBoth);
  table.add(a, c, Directions::kOne);
  table.add(a, b, Directions::kOne);
  table.add(d, a, Directions::kOne);
  table.setMarked(marks({{"A", "a"}, {"B", "b"}, {"C", "c"}, {"D", "d"}}));
  EXPECT_THAT(table.forbidding("A", "a"),
              ElementsAre(OptionChoice{"B", "b"}, OptionChoice{"C", "c"}));
  EXPECT_THAT(table.forbidding("B", "b"), ElementsAre(OptionChoice{"A", "a"}));
  EXPECT_THAT(table.forbidding("C", "c"), IsEmpty());
  EXPECT_THAT(table.forbidding("D", "d"), ElementsAre(OptionChoice{"A", "a"}));
}

TEST(Constraints, ThatDifferFromTheMirroredOneInOneFieldAreEntered) {
  const HandmadeConstraint first = {"InputSlot", "M", "CoverMediaType", "P"};
  const std::vector<HandmadeConstraint> others = {{"CoverMediaTypes", "P", "InputSlot", "M"},
                                                  {"CoverMediaType", "PP", "InputSlot", "M"},
                                                  {"CoverMediaType", "P", "InputSlots", "M"},
                                                  {"CoverMediaType", "P", "InputSlot", "N"}};
  for (const HandmadeConstraint& other : others) {
    HandmadePPD ppd(Groups(), {first, other});
    PPDInfo info;
    info.loadAllConstraintsFromPPD(ppd.get());
    HandmadePPD marked(oneGroup({{other.option1, {other.choice1}, other.choice1}}));
    info.loadPPDFile(marked.get());
    EXPECT_FALSE(info.willAllowChangeOfOption(other.option2, other.choice2))
        << other.option1 << ' ' << other.choice1 << ' ' << other.option2 << ' ' << other.choice2;
  }
}

}  // namespace
}  // namespace publishing
