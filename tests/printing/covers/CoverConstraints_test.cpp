// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoverConstraints.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printing/covers/CoversPPD.h"
#include "tests/printing/covers/SampleDrivers.h"

namespace publishing {
namespace {

using test::optionLines;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kMedia = optionLines("MediaType", {"Thick", "Thin", "None"}) +
                           optionLines("InputSlot", {"Upper", "Lower", "Off", "Thick"});

std::vector<std::string> repeated(const std::string& lines) {
  const std::string ppd = kMedia + lines;
  const auto statements = statementsOf(ppd);
  const PPDMedia media = mediaOf(statements);
  return repeatedConstraints(statements, coverChoices(media, true), {"CoverMediaType"});
}

TEST(CoverConstraints, StandForTheMediumAtItsPlace) {
  EXPECT_THAT(repeated("*UIConstraints: *InputSlot Upper *Duplex\n"),
              ElementsAre("*UIConstraints: *CoverMediaType Upper *Duplex"));
  EXPECT_THAT(repeated("*UIConstraints: *Duplex Tumble   *MediaType Thin \n"),
              ElementsAre("*UIConstraints: *Duplex Tumble *CoverMediaType Thin"));
  EXPECT_THAT(repeated("*NonUIConstraints: *CustomPageSize True *InputSlot Lower\n"),
              ElementsAre("*NonUIConstraints: *CustomPageSize True *CoverMediaType Lower"));
}

TEST(CoverConstraints, HaveTheKeywordsOfCovers) {
  EXPECT_THAT(repeated("*UIConstraints: *InputSlot Thick *Duplex\n"
                       "*UIConstraints: *MediaType Thick *Duplex\n"),
              ElementsAre("*UIConstraints: *CoverMediaType Slot.Thick *Duplex",
                          "*UIConstraints: *CoverMediaType Type.Thick *Duplex"));
}

TEST(CoverConstraints, BetweenTrayAndTypeAreRepeatedOnEachSide) {
  EXPECT_THAT(repeated("*UIConstraints: *InputSlot Upper *MediaType Thin\n"),
              ElementsAre("*UIConstraints: *InputSlot Upper *CoverMediaType Thin",
                          "*UIConstraints: *CoverMediaType Upper *MediaType Thin"));
}

TEST(CoverConstraints, ASideWithoutAChoiceMeansEveryChoiceThatSwitchesSomethingOn) {
  EXPECT_THAT(repeated("*UIConstraints: *InputSlot *Duplex Tumble\n"),
              ElementsAre("*UIConstraints: *CoverMediaType Upper *Duplex Tumble",
                          "*UIConstraints: *CoverMediaType Lower *Duplex Tumble",
                          "*UIConstraints: *CoverMediaType Slot.Thick *Duplex Tumble"));
}

TEST(CoverConstraints, KeywordsAreComparedAsLibcupsDoes) {
  EXPECT_THAT(repeated("*UIConstraints: *inputslot UPPER *Duplex\n"),
              ElementsAre("*UIConstraints: *CoverMediaType Upper *Duplex"));
}

TEST(CoverConstraints, OfMoreThanTwoOptionsAreRepeatedWithoutTheirResolver) {
  EXPECT_THAT(repeated("*cupsUIConstraints One: \"*PageSize A5 *InputSlot Upper *Duplex\"\n"),
              ElementsAre("*cupsUIConstraints: \"*PageSize A5 *CoverMediaType Upper *Duplex\""));
}

TEST(CoverConstraints, ThatSayNothingOfAMediumAreNotRepeated) {
  EXPECT_THAT(repeated("*UIConstraints: *PageSize A5 *Duplex\n"
                       "*UIConstraints: *InputSlot Nowhere *Duplex\n"
                       "*UIConstraints: *InputSlot Upper\n"
                       "*UIConstraints:\n"
                       "*UIConstraints: *InputSlot Upper *Duplex \"\n\"\n"
                       "*UIConstraints: Upper Lower\n"
                       "*% *UIConstraints: *InputSlot Upper *Duplex\n"
                       "*UIConstraints: *InputSlot Upper *InputSlot Lower\n"),
              IsEmpty());
}

// --- what libcups makes of them ---

// A PPD with all kinds of constraints on trays and types.
const std::string kConstrainedPPD =
    test::ppdText(kPostScriptMedia + optionLines("Duplex", {"None", "Long", "Short"}, "None") +
                  optionLines("PageSize", {"A4", "A5", "Custom"}, "A4") +
                  optionLines("Stapler", {"Off", "One", "Two"}, "Off") +
                  "*UIConstraints: *InputSlot Tray1 *Duplex Long\n"
                  "*UIConstraints: *Duplex Long *InputSlot Tray1\n"
                  "*UIConstraints: *InputSlot Tray2 *MediaType Coated\n"
                  "*UIConstraints: *MediaType *Stapler Two\n"
                  "*UIConstraints: *InputSlot *Stapler One\n"
                  "*UIConstraints: *inputslot TRAY2 *pagesize a5\n"
                  "*NonUIConstraints: *MediaType Coated *PageSize A5\n"
                  "*cupsUIConstraints: \"*InputSlot Auto *Duplex Short *Stapler\"\n");

using Choices = std::map<std::string, std::string>;

// Whether libcups sees a conflict when nothing but these choices is marked.
bool conflicting(ppd_file_t* ppd, const Choices& choices) {
  for (auto* marked = static_cast<ppd_choice_t*>(cupsArrayFirst(ppd->marked)); marked != nullptr;
       marked = static_cast<ppd_choice_t*>(cupsArrayFirst(ppd->marked))) {
    marked->marked = 0;
    cupsArrayRemove(ppd->marked, marked);
  }
  for (const auto& [option, choice] : choices)
    ppdMarkOption(ppd, option.c_str(), choice.c_str());
  return ppdConflicts(ppd) > 0;
}

// For every tray and type, with every pair of choices of two other options.
TEST(CoverConstraints, ForbidExactlyWhatTheyForbidForTheMediumItself) {
  const auto ppd = test::openUnmarkedPPD(withCovers(kConstrainedPPD));
  const Choices media[] = {{{"InputSlot", "Tray1"}, {"Cover", "Tray1"}},
                           {{"InputSlot", "Tray2"}, {"Cover", "Tray2"}},
                           {{"InputSlot", "Auto"}, {"Cover", "Slot.Auto"}},
                           {{"MediaType", "Plain"}, {"Cover", "Plain"}},
                           {{"MediaType", "Coated"}, {"Cover", "Coated"}},
                           {{"MediaType", "Auto"}, {"Cover", "Type.Auto"}}};
  const std::map<std::string, std::vector<std::string>> others = {
      {"Duplex", {"None", "Long", "Short"}},
      {"PageSize", {"A4", "A5"}},
      {"Stapler", {"Off", "One", "Two"}},
      {"InputSlot", {"Auto", "Tray1", "Tray2"}},
      {"MediaType", {"Auto", "Plain", "Coated"}}};
  int forbidden = 0;
  for (const Choices& row : media) {
    const std::string cover = row.at("Cover");
    const std::string medium = row.contains("InputSlot") ? "InputSlot" : "MediaType";
    for (const auto& [first, firstChoices] : others) {
      for (const auto& [second, secondChoices] : others) {
        if (first == medium || second == medium) continue;
        for (const std::string& one : firstChoices) {
          for (const std::string& two : secondChoices) {
            const Choices marks = {{first, one}, {second, two}};
            Choices own = marks;
            own[medium] = row.at(medium);
            const bool expected = conflicting(ppd.get(), own);
            forbidden += expected ? 1 : 0;
            for (const char* option : {"CoverMediaType", "PageMediaType"}) {
              Choices covers = marks;
              covers[option] = cover;
              EXPECT_EQ(conflicting(ppd.get(), covers), expected)
                  << option << '=' << cover << ' ' << first << '=' << one << ' ' << second << '='
                  << two;
            }
          }
        }
      }
    }
  }
  EXPECT_GT(forbidden, 20);
}

}  // namespace
}  // namespace publishing
