// SPDX-License-Identifier: Apache-2.0
// What is remembered for a printer, in its dialog: fitted to the printer, said where it cannot be,
// and never in the way of a user who does not look.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/shells/DialogHostTest.h"

namespace publishing {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::Pair;

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t place = text.find(from); place != std::string::npos;
       place = text.find(from, place + to.size()))
    text.replace(place, from.size(), to);
  return text;
}

class DialogHostRememberedTest : public DialogHostTest {
 protected:
  // Leather covers and inserts of recycled paper, printed once.
  void printOnce(const std::string& list) {
    choose(office);
    for (const char* feature : {"CmCheckBox", "PiCheckBox"})
      if (box(feature).state() == 0) box(feature).click();
    popUp("CmMediaType").choose(5);
    popUp("PiMediaType").choose(2);
    pages().type(list);
    ASSERT_TRUE(dialog.print());
    dialog.handedOver.clear();
  }

  // The same printer with another PPD.
  void change(const std::string& from, const std::string& to) { become(replaced(whole, from, to)); }
  void become(const std::string& ppd) { EXPECT_EQ(folder.file("Office.ppd", ppd), office); }

  const std::string whole = contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd");

  static constexpr const char* kLeather = "*CoverMediaType Leather/";
  static constexpr const char* kLeatherWithText =
      "*CoverMediaType Leather/Leather Grain “Größe A”:";
};

TEST_F(DialogHostRememberedTest, MediumIsTheSameAlthoughThePPDGotOneMore) {
  printOnce("5");
  change(kLeather, "*CoverMediaType Silk/Silk: \"\"\n*CoverMediaType Leather/");
  choose(office);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 6);
  EXPECT_EQ(dialog.choice("CoverMediaType"), "Leather");
  EXPECT_EQ(dialog.notices(), "");
}

TEST_F(DialogHostRememberedTest, MediumThatIsGoneIsSaidAndItsFeatureIsOff) {
  printOnce("5");
  change(kLeatherWithText, "*CoverMediaType Silk/Silk:");
  choose(office);
  EXPECT_THAT(dialog.notices(), HasSubstr("is no longer offered for covers"));
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  EXPECT_EQ(box("PiCheckBox").state(), 1);
  EXPECT_TRUE(dialog.print());
  EXPECT_THAT(dialog.alerts, IsEmpty());
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "Off");
}

TEST_F(DialogHostRememberedTest, MediumThatIsGoneIsAskedAboutWhenNobodyLooked) {
  printOnce("5");
  change(kLeatherWithText, "*CoverMediaType Silk/Silk:");
  dialog.leaveTab();
  dialog.selectPrinter(office);
  EXPECT_FALSE(dialog.print());
  EXPECT_THAT(dialog.alerts, ElementsAre(HasSubstr("is no longer offered for covers")));
  EXPECT_TRUE(dialog.isTabInFront());
  // The tab says so now.
  EXPECT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "Off");
}

TEST_F(DialogHostRememberedTest, ListThatPrintedOncePrintsAgain) {
  for (const char* list : {"5-14,20-29", "5,6,7,8,9,10,11,12,13,14", "2,3-11"}) {
    printOnce(list);
    choose(office);
    const std::string saved = pages().stringValue().value_or("");
    EXPECT_TRUE(dialog.print()) << list << ' ' << saved;
    dialog.leaveTab();
    dialog.selectPrinter(office);
    EXPECT_TRUE(dialog.print()) << list;
    EXPECT_THAT(dialog.alerts, IsEmpty());
    EXPECT_EQ(dialog.handedOver["VtPageinsertState"], "On");
  }
}

class DialogHostFaultyListTest : public DialogHostRememberedTest {
 protected:
  void rememberFaultyList() {
    printOnce("2");
    auto values = stored(office);
    values["VtPageinsertNums"] = "5,1";
    StoredSettings().store(office, values);
    remembered = stored(office);
    dialog.leaveTab();
    dialog.selectPrinter(office);
  }

  StoredSettings::Values remembered;
};

TEST_F(DialogHostFaultyListTest, DoesNotBlockAUserWhoDoesNotLook) {
  rememberFaultyList();
  dialog.acceptsLosses = true;
  EXPECT_TRUE(dialog.print());
  EXPECT_THAT(dialog.alerts,
              ElementsAre(AllOf(HasSubstr("(5,1)"), HasSubstr("“1”: page 2 is the lowest"))));
  EXPECT_EQ(dialog.handedOver["VtPageinsertState"], "Off");
  EXPECT_EQ(dialog.handedOver["VtCoverModeState"], "On");
  EXPECT_THAT(dialog.handedOver, Not(Contains(Pair("PageMediaType", "Recycled"))));
  EXPECT_EQ(stored(office), remembered);
}

TEST_F(DialogHostFaultyListTest, IsShownToAUserWhoGoesBack) {
  rememberFaultyList();
  EXPECT_FALSE(dialog.print());
  EXPECT_TRUE(dialog.isTabInFront());
  EXPECT_EQ(box("PiCheckBox").state(), 1);
  EXPECT_EQ(pages().stringValue(), "5,1");
  EXPECT_EQ(pages().selected(), "1");
  EXPECT_EQ(stored(office), remembered);
  pages().type("5");
  EXPECT_TRUE(dialog.print());
  EXPECT_EQ(dialog.handedOver["VtPageinsertNums"], "5,");
}

TEST_F(DialogHostFaultyListTest, AlertSaysWhichEntryIsWrongAndLeadsThere) {
  choose(office);
  box("PiCheckBox").click();
  pages().type("5,14-12,8");
  EXPECT_FALSE(dialog.print());
  EXPECT_THAT(dialog.alerts,
              ElementsAre(AllOf(HasSubstr("The ending page number of range"),
                                HasSubstr("“14-12”: the range must end at page 15 to 22"))));
  EXPECT_EQ(pages().selected(), "14-12");
}

TEST_F(DialogHostRememberedTest, DamagedPPDIsSaidInTheTab) {
  become(whole.substr(0, whole.find("*TransMediaType Transparency/") + 60));
  choose(office);
  EXPECT_TRUE(dialog.hasPanel());
  EXPECT_THAT(dialog.notices(), HasSubstr("may be damaged or truncated"));
  become(whole.substr(0, whole.find("*OpenUI *CoverMediaType") + 50));
  choose(office);
  EXPECT_FALSE(dialog.hasPanel());
  EXPECT_THAT(dialog.message(),
              AllOf(HasSubstr("does not make covers"), HasSubstr("may be damaged or truncated")));
}

TEST_F(DialogHostRememberedTest, FeatureThatIsOffHasNoMedium) {
  printOnce("5");
  box("CmCheckBox").click();
  box("PiCheckBox").click();
  EXPECT_EQ(dialog.choice("CoverMediaType"), "PrnDef");
  ASSERT_TRUE(dialog.print());
  EXPECT_THAT(dialog.handedOver, Not(Contains(Key("CoverMediaType"))));
  EXPECT_THAT(dialog.handedOver, Not(Contains(Key("PageMediaType"))));
}

TEST_F(DialogHostRememberedTest, MediumOfThePPDsDefaultNeedsTheFeature) {
  change("*DefaultCoverMediaType: PrnDef", "*DefaultCoverMediaType: Coated");
  dialog.selectPrinter(office);
  dialog.change([](DialogJob& job) {
    job.options["CoverMediaType"] = "Coated";
    job.options["InputSlot"] = "Tray2";  // conflicts with it
  });
  choose(office);
  dialog.change([](DialogJob& job) { job.options["InputSlot"] = "Tray2"; });
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  ASSERT_TRUE(dialog.print());
  EXPECT_THAT(dialog.alerts, IsEmpty());
  EXPECT_EQ(dialog.handedOver["CoverMediaType"], "PrnDef");
  EXPECT_EQ(dialog.choice("CoverMediaType"), "PrnDef");
}

TEST_F(DialogHostRememberedTest, NoneInTheDialogsOwnTabsIsCoversOff) {
  choose(office);
  box("CmCheckBox").click();
  popUp("CmMediaType").choose(5);
  dialog.change([](DialogJob& job) { job.options["CoverMediaType"] = "None"; });
  EXPECT_EQ(box("CmCheckBox").state(), 0);
  dialog.change([](DialogJob& job) { job.options["CoverMediaType"] = "Leather"; });
  EXPECT_EQ(box("CmCheckBox").state(), 1);
  EXPECT_EQ(popUp("CmMediaType").indexOfSelectedItem(), 5);
}

TEST_F(DialogHostRememberedTest, LayoutInTheJobsOptionsRulesOutCovers) {
  const std::map<std::string, std::string> options = {{"number-up", "4"},
                                                      {"outputorder", "reverse"},
                                                      {"page-delivery", "reverse-order-face-up"},
                                                      {"booklet", "true"}};
  for (const auto& [name, value] : options) {
    choose(office);
    dialog.change([&](DialogJob& job) { job.options[name] = value; });
    EXPECT_FALSE(box("CmCheckBox").isEnabled()) << name;
    EXPECT_THAT(box("CmCheckBox").tooltip(), HasSubstr("lpoptions")) << name;
  }
}

}  // namespace
}  // namespace publishing
