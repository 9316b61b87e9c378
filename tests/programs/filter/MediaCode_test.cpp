// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/MediaCode.h"

#include <map>

#include <gmock/gmock.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kSamplePPD = contentsOfFile(TEST_DATA "/zephrel-ps-9000.ppd");

class MediaCode : public ::testing::Test {
 protected:
  // The code that takes a cover from there; "" for the way back to the body.
  std::string codeFor(const std::string& choice, const std::string& ppd = kSamplePPD) {
    FilterPPD printer(folder_.file("printer.ppd", ppd));
    printer.mark({{"InputSlot", "Tray4"}, {"PageSize", "Letter"}});
    SheetOrder order;
    order.covers = Covers::Front;
    order.coverMedium = choice;
    return sheetCode(order, printer).media.at(choice);
  }

  // The code before the first page of a job with these options, whose body comes from Tray4.
  std::string setupFor(std::map<std::string, std::string> options,
                       const std::string& ppd = kSamplePPD) {
    FilterPPD printer(folder_.file("printer.ppd", ppd));
    options["InputSlot"] = "Tray4";
    printer.mark(options);
    SheetOrder order;
    order.covers = Covers::Front;
    order.twoSided = printer.facts().markedTwoSided.value_or(false);
    return sheetCode(order, printer).setup;
  }

  // The sample PPD with more entries.
  static std::string with(const std::string& entries) { return kSamplePPD + entries; }

  TemporaryFolder folder_;
};

constexpr const char* kTray2 =
    "%%BeginFeature: *InputSlot Tray2\n<</MediaPosition 1>>setpagedevice\n%%EndFeature\n"
    "} stopped cleartomark\n";

TEST_F(MediaCode, ATrayIsItsInputSlotWithTheTypeReleased) {
  const std::string code = codeFor("Tray2");
  EXPECT_THAT(code, AllOf(HasSubstr(kTray2), HasSubstr("[/MediaType/MediaColor"),
                          Not(HasSubstr("*MediaType"))));
  EXPECT_LT(code.find("[/MediaType"), code.find("*InputSlot"));
}

TEST_F(MediaCode, ATypeIsItsMediaTypeWithTheTrayReleased) {
  const std::string code = codeFor("Coated");
  EXPECT_THAT(code, AllOf(HasSubstr("%%BeginFeature: *MediaType Coated\n<</MediaType(Coated)>>"),
                          HasSubstr("[/MediaPosition/ManualFeed"), Not(HasSubstr("*InputSlot"))));
}

TEST_F(MediaCode, ATypeThatThePPDDoesNotKnowIsNamedToTheDevice) {
  EXPECT_THAT(codeFor("Leather"), HasSubstr("<</MediaType(Leather)>>setpagedevice"));
  EXPECT_EQ(postScriptString("a(b)\\c\xC3\xA9\n"), "a\\(b\\)\\\\c\\303\\251\\012");
}

TEST_F(MediaCode, TheBodyGetsItsOwnChoicesAndWhatTheDeviceHad) {
  const std::string code = codeFor("");
  EXPECT_THAT(code, AllOf(HasSubstr("*InputSlot Tray4\n"), HasSubstr("*MediaType Plain\n"),
                          HasSubstr("PublishingMedia/back")));
  EXPECT_LT(code.find("*MediaType Plain"), code.find("PublishingMedia/back"));
}

TEST_F(MediaCode, ThePageRegionFollowsWhereThePPDWantsIt) {
  const std::string region = "*PageRegion Letter\n";
  for (const char* choice : {"", "Tray2", "Coated"}) {
    const std::string code = codeFor(choice);
    EXPECT_THAT(code, HasSubstr(region));
    const std::string after = code.substr(code.find(region));
    EXPECT_THAT(after, AllOf(Not(HasSubstr("*InputSlot")), Not(HasSubstr("*MediaType"))));
  }
  std::string other = kSamplePPD;
  other.replace(other.find("*RequiresPageRegion All: True"), 29, "*RequiresPageRegion Tray2: True");
  EXPECT_THAT(codeFor("Tray2", other), HasSubstr(region));
  EXPECT_THAT(codeFor("Tray3", other), Not(HasSubstr(region)));
}

TEST_F(MediaCode, CodesComeInTheOrderThatThePPDWants) {
  std::string other = kSamplePPD;
  other.replace(other.find("*OrderDependency: 20 AnySetup *InputSlot"), 20, "*OrderDependency: 90");
  const std::string code = codeFor("", other);
  EXPECT_LT(code.find("*MediaType Plain"), code.find("*PageRegion"));
  EXPECT_LT(code.find("*PageRegion"), code.find("*InputSlot Tray4"));
}

// "Tray2" names a type of paper when it is not among the last choices.
TEST_F(MediaCode, OnlyTheLastChoicesAreTrays) {
  std::string other = kSamplePPD;
  const std::string choice = "*CoverMediaType Tray2/Tray 2:";
  const std::size_t line = other.find(choice);
  const std::string text = other.substr(line, other.find('\n', line) + 1 - line);
  other.erase(line, text.size());
  other.insert(other.find("*CoverMediaType None/"), text);
  other.insert(other.find("*CoverMediaType Tray1/"), "*CoverMediaType Slot.Tray2/x: \"\"\n");
  EXPECT_THAT(codeFor("Tray2", other), HasSubstr("<</MediaType(Tray2)>>setpagedevice"));
  EXPECT_THAT(codeFor("Slot.Tray2", other), HasSubstr(kTray2));
}

TEST_F(MediaCode, PrefixesAreTakenOff) {
  std::string other = kSamplePPD;
  other.insert(other.find("*CoverMediaType None/"), "*CoverMediaType Type.Plain/x: \"\"\n");
  EXPECT_THAT(codeFor("Type.Plain", other), HasSubstr("*MediaType Plain\n"));
}

TEST_F(MediaCode, CodeThatThePPDKeepsForPagesComesFirst) {
  const std::string ppd = with(
      "*PublishingKind: \"foomatic-ghostscript\"\n"
      "*PublishingCode InputSlot.Tray2: \"tray 2\"\n*PublishingCode InputSlot.Tray4: \"tray 4\"\n"
      "*PublishingCode Release.InputSlot: \"no tray\"\n*PublishingCode Release.MediaType: \"\"\n");
  const std::string tray = codeFor("Tray2", ppd);
  EXPECT_THAT(tray, AllOf(HasSubstr("[{\ntray 2\n} stopped cleartomark\n"),
                          Not(HasSubstr("BeginFeature")), Not(HasSubstr("/MediaType"))));
  const std::string body = codeFor("", ppd);
  EXPECT_THAT(body, AllOf(HasSubstr("[{\ntray 4\n} stopped"), Not(HasSubstr("BeginFeature"))));
  EXPECT_LT(body.find("no tray"), body.find("tray 4"));
  EXPECT_THAT(codeFor("Coated", ppd),
              AllOf(HasSubstr("[{\nno tray\n} stopped"), Not(HasSubstr("/MediaPosition"))));
}

// All sheets of the body come from the tray that they come back to after an insert.
TEST_F(MediaCode, TheBodyStartsOnTheTrayOfTheCodeThatThePPDKeepsForPages) {
  EXPECT_THAT(setupFor({}), Not(HasSubstr("setpagedevice\n} stopped")));
  const std::string setup =
      setupFor({}, with("*PublishingCode InputSlot.Tray4: \"<</Mine 4>>setpagedevice\"\n"));
  EXPECT_THAT(setup, HasSubstr("[{\n<</Mine 4>>setpagedevice\n} stopped cleartomark\n"));
  EXPECT_LT(setup.find("/Mine 4"), setup.find("PublishingMedia/keep"));
}

// Some drivers print on both sides by themselves.
TEST_F(MediaCode, OneSidedPrintingIsSaidWhereThePPDKeepsCodeForIt) {
  const std::string ppd = with("*PublishingCode Duplex.None: \"one side\"\n");
  EXPECT_THAT(setupFor({{"sides", "one-sided"}}, ppd), HasSubstr("[{\none side\n} stopped"));
  EXPECT_THAT(setupFor({{"sides", "two-sided-long-edge"}}, ppd), Not(HasSubstr("one side")));
}

TEST_F(MediaCode, FoomaticsPostScriptPrintersHaveTheirChoicesCode) {
  EXPECT_THAT(codeFor("Tray2", with("*PublishingKind: \"foomatic-postscript\"\n")),
              HasSubstr(kTray2));
}

TEST_F(MediaCode, TwoSidedPrintingIsSaidAgain) {
  FilterPPD printer(TEST_DATA "/zephrel-ps-9000.ppd");
  printer.mark({{"sides", "two-sided-short-edge"}});
  SheetOrder order;
  order.covers = Covers::Front;
  EXPECT_THAT(sheetCode(order, printer).setup, Not(HasSubstr("*Duplex")));
  order.twoSided = true;
  EXPECT_THAT(sheetCode(order, printer).setup, HasSubstr("*Duplex DuplexTumble\n"));
}

TEST_F(MediaCode, FactsOfThePrinterAreThoseOfItsMarks) {
  FilterPPD printer(folder_.file("printer.ppd", with("*DefaultOutputOrder: Reverse\n")));
  printer.mark({{"sides", "two-sided-long-edge"}, {"CoverMediaType", "Tray3"}});
  const PrinterFacts facts = printer.facts();
  EXPECT_TRUE(facts.canDuplex);
  EXPECT_EQ(facts.markedTwoSided, true);
  EXPECT_EQ(facts.defaultOutputOrder, "Reverse");
  EXPECT_EQ(facts.markedCoverMediaType, "Tray3");
  EXPECT_EQ(facts.markedPageMediaType, "PrnDef");
  EXPECT_FALSE(facts.markedCollate);
}

TEST_F(MediaCode, FactsOfThePrinterSayHowManyCopiesItMakes) {
  const auto mostCopies = [&](const std::string& entry) {
    return FilterPPD(folder_.file("printer.ppd", with(entry))).facts().mostCopies;
  };
  EXPECT_EQ(mostCopies(""), 9999);
  EXPECT_EQ(mostCopies("*cupsManualCopies: True\n"), 1);
  EXPECT_EQ(mostCopies("*cupsMaxCopies: 99\n"), 99);
  EXPECT_EQ(mostCopies("*cupsManualCopies: True\n*cupsMaxCopies: none\n"), 1);
}

TEST_F(MediaCode, FactsOfThePrinterSayWhetherItCollates) {
  FilterPPD printer(
      folder_.file("printer.ppd", with("*OpenUI *Collate: Boolean\n"
                                       "*DefaultCollate: False\n*Collate True: \"\"\n"
                                       "*Collate False: \"\"\n*CloseUI: *Collate\n")));
  EXPECT_FALSE(printer.facts().markedCollate);
  printer.mark({{"Collate", "True"}});
  EXPECT_TRUE(printer.facts().markedCollate);
}

TEST_F(MediaCode, APPDThatIsNoneIsRefusedWithItsLine) {
  EXPECT_THROW(FilterPPD(folder_.file("printer.ppd", "no PPD")), std::runtime_error);
  EXPECT_THROW(FilterPPD(folder_ / "missing.ppd"), std::runtime_error);
}

}  // namespace
}  // namespace publishing
