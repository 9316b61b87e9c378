// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetOrder.h"

#include <cctype>
#include <ostream>

#include <gmock/gmock.h>

#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = SheetWarning::Kind;

const Options kBoth = kTwoSided + covers("2", "5") + inserts("0", "5,8,");

TEST(SheetOrder, SaysWhatThePanelsKeysSay) {
  const SheetOrder order = orderOf(kBoth);
  EXPECT_TRUE(order.twoSided);
  EXPECT_EQ(order.covers, Covers::FrontAndBack);
  EXPECT_EQ(order.coverSides, (CoverSides{.frontOutside = true, .backOutside = true}));
  EXPECT_EQ(order.coverMedium, "Leather");
  EXPECT_TRUE(order.inserts);
  EXPECT_EQ(order.insertPrinting, InsertPrinting::Blank);
  EXPECT_EQ(order.insertMedium, "Thick");
  EXPECT_THAT(order.insertPages, ElementsAre(5, 8));
  EXPECT_EQ(order.copies, 1);
  EXPECT_FALSE(order.collated);
  EXPECT_THAT(order.warnings, IsEmpty());
  EXPECT_FALSE(order.isPlain());
}

TEST(SheetOrder, OfNoOptionsIsPlain) {
  const SheetOrder order = orderOf({});
  EXPECT_TRUE(order.isPlain());
  EXPECT_FALSE(order.twoSided);
  EXPECT_THAT(order.warnings, IsEmpty());
}

TEST(SheetOrder, AFeatureIsOnWhenItsStateSaysSoExactly) {
  for (const char* state : {"Off", "on", "ON", "true", "1", "On ", ""}) {
    const SheetOrder order =
        orderOf(kBoth + Options{{"VtCoverModeState", state}, {"VtPageinsertState", state}});
    EXPECT_TRUE(order.isPlain()) << state;
    EXPECT_THAT(order.warnings, IsEmpty()) << state;
  }
}

TEST(SheetOrder, OneFeatureCanBeOnAlone) {
  const SheetOrder inserted = orderOf(kBoth + Options{{"VtCoverModeState", "Off"}});
  EXPECT_EQ(inserted.covers, Covers::None);
  EXPECT_TRUE(inserted.inserts);
  const SheetOrder covered = orderOf(kBoth + Options{{"VtPageinsertState", "Off"}});
  EXPECT_EQ(covered.covers, Covers::FrontAndBack);
  EXPECT_FALSE(covered.inserts);
  EXPECT_THAT(covered.insertPages, IsEmpty());
}

TEST(SheetOrder, NamesOfOptionsAreTakenInAnyCase) {
  Options job;
  for (const auto& [name, value] : kBoth) {
    std::string upper;
    for (const char letter : name)
      upper += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    job[upper] = value;
  }
  EXPECT_EQ(planSheets(orderOf(job), 9).sheets, planSheets(orderOf(kBoth), 9).sheets);
}

// Layouts in which a sheet cannot be given to a page.

struct Layout {
  const char* name;
  Options options;
  std::optional<Kind> reason;
  const char* text = "";
  PrinterFacts printer = {};
};

void PrintTo(const Layout& tried, std::ostream* out) {
  *out << tried.name;
}

class SheetOrderLayout : public ::testing::TestWithParam<Layout> {};

TEST_P(SheetOrderLayout, SwitchesBothFeaturesOffUnlessPagesFollowEachOther) {
  const Layout& tried = GetParam();
  const SheetOrder order = readSheetOrder(kBoth + tried.options, tried.printer);
  EXPECT_EQ(order.isPlain(), tried.reason.has_value());
  EXPECT_TRUE(order.twoSided);
  if (tried.reason) {
    EXPECT_THAT(order.warnings, ElementsAre(SheetWarning{*tried.reason, {}, tried.text}));
  } else {
    EXPECT_THAT(order.warnings, IsEmpty());
  }
}

TEST_P(SheetOrderLayout, IsNoMatterWhileBothFeaturesAreOff) {
  const Layout& tried = GetParam();
  const SheetOrder order = readSheetOrder(tried.options, tried.printer);
  EXPECT_TRUE(order.isPlain());
  EXPECT_THAT(order.warnings, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Layouts, SheetOrderLayout,
    ::testing::Values(
        Layout{"OneUp", {{"number-up", "1"}}, {}},
        Layout{"TwoUp", {{"number-up", "2"}}, Kind::SeveralPagesASide, "2"},
        Layout{"ZeroUp", {{"number-up", "0"}}, Kind::SeveralPagesASide, "0"},
        Layout{"JunkUp", {{"number-up", "1x"}}, Kind::SeveralPagesASide, "1x"},
        Layout{"NoBooklet", {{"booklet", "false"}}, {}},
        Layout{"Booklet", {{"booklet", "true"}}, Kind::Booklet, "true"},
        Layout{"ShuffledBooklet", {{"booklet", "shuffle-only"}}, Kind::Booklet, "shuffle-only"},
        Layout{"Normal", {{"outputorder", "normal"}}, {}},
        Layout{"Reverse", {{"outputorder", "reverse"}}, Kind::ReverseOrder, "reverse"},
        Layout{"ReversePPDOption", {{"OutputOrder", "Reverse"}}, Kind::ReverseOrder, "Reverse"},
        Layout{"ReverseHyphenated", {{"output-order", "reverse"}}, Kind::ReverseOrder, "reverse"},
        Layout{"SameOrder", {{"page-delivery", "same-order"}}, {}},
        Layout{"ReverseDelivery",
               {{"page-delivery", "reverse-order"}},
               Kind::ReverseOrder,
               "reverse-order"},
        Layout{"ReverseDeliveryFaceUp",
               {{"page-delivery", "reverse-order-face-up"}},
               Kind::ReverseOrder,
               "reverse-order-face-up"},
        Layout{
            "MarkedReverse", {}, Kind::ReverseOrder, "Reverse", {.markedOutputOrder = "Reverse"}},
        Layout{
            "DefaultReverse", {}, Kind::ReverseOrder, "Reverse", {.defaultOutputOrder = "Reverse"}},
        Layout{"MarkWinsOverDefault",
               {},
               {},
               "",
               {.markedOutputOrder = "Normal", .defaultOutputOrder = "Reverse"}},
        Layout{"OptionWinsOverMark",
               {{"page-delivery", "same-order"}},
               {},
               "",
               {.markedOutputOrder = "Reverse"}},
        Layout{"PPDOptionWinsOverDelivery",
               {{"OutputOrder", "Reverse"}, {"page-delivery", "same-order"}},
               Kind::ReverseOrder,
               "Reverse"}),
    [](const auto& layout) { return std::string(layout.param.name); });

TEST(SheetOrder, TheMarkedDuplexChoiceWinsOverSides) {
  EXPECT_FALSE(readSheetOrder(kTwoSided, {.markedTwoSided = false}).twoSided);
  EXPECT_TRUE(readSheetOrder(kOneSided, {.markedTwoSided = true}).twoSided);
}

TEST(SheetOrder, SidesSayWhatNoMarkSays) {
  EXPECT_TRUE(orderOf({{"sides", "two-sided-long-edge"}}).twoSided);
  EXPECT_TRUE(orderOf({{"sides", "two-sided-short-edge"}}).twoSided);
  for (const char* sides : {"one-sided", "two-sided", "two-sided-long-edge-x", ""})
    EXPECT_FALSE(orderOf({{"sides", sides}}).twoSided) << sides;
}

TEST(SheetOrder, APrinterWithoutDuplexIsOneSided) {
  EXPECT_FALSE(readSheetOrder(kTwoSided, {.canDuplex = false}).twoSided);
  EXPECT_FALSE(readSheetOrder(kTwoSided, {.canDuplex = false, .markedTwoSided = true}).twoSided);
}

TEST(SheetOrder, CoverMediumNoneIsNoCovers) {
  const SheetOrder order = orderOf(kBoth + Options{{"CoverMediaType", "None"}});
  EXPECT_EQ(order.covers, Covers::None);
  EXPECT_TRUE(order.inserts);
  EXPECT_THAT(order.warnings, IsEmpty());
}

TEST(SheetOrder, InsertMediumNoneIsNoInserts) {
  const SheetOrder order = orderOf(kBoth + Options{{"PageMediaType", "None"}});
  EXPECT_FALSE(order.inserts);
  EXPECT_EQ(order.covers, Covers::FrontAndBack);
  EXPECT_THAT(order.warnings, IsEmpty());
}

TEST(SheetOrder, MarkedMediaCountWhenTheJobNamesNone) {
  Options job = kBoth;
  job.erase("CoverMediaType");
  job.erase("PageMediaType");
  const PrinterFacts printer = {.markedCoverMediaType = "Coated", .markedPageMediaType = "Labels"};
  EXPECT_EQ(readSheetOrder(job, printer).coverMedium, "Coated");
  EXPECT_EQ(readSheetOrder(job, printer).insertMedium, "Labels");
  EXPECT_EQ(readSheetOrder(kBoth, printer).coverMedium, "Leather");
  EXPECT_EQ(readSheetOrder(kBoth, printer).insertMedium, "Thick");
  EXPECT_EQ(readSheetOrder(job, {.markedCoverMediaType = "None"}).covers, Covers::None);
}

TEST(SheetOrder, PrinterDefaultIsTheMediumOfTheBody) {
  const SheetOrder order =
      orderOf(kBoth + Options{{"CoverMediaType", "PrnDef"}, {"PageMediaType", "PrnDef"}});
  EXPECT_EQ(order.covers, Covers::FrontAndBack);
  EXPECT_EQ(order.coverMedium, "");
  EXPECT_TRUE(order.inserts);
  EXPECT_EQ(order.insertMedium, "");
}

// Values of the cover keys.

CoverSides sidesOf(const Options& options) {
  return orderOf(options).coverSides;
}

TEST(SheetOrder, CoverValueIsABitSetOfSides) {
  EXPECT_EQ(sidesOf(kTwoSided + covers("2", "1")), (CoverSides{.frontOutside = true}));
  EXPECT_EQ(sidesOf(kTwoSided + covers("2", "2")), (CoverSides{.frontInside = true}));
  EXPECT_EQ(sidesOf(kTwoSided + covers("2", "4")), (CoverSides{.backOutside = true}));
  EXPECT_EQ(sidesOf(kTwoSided + covers("2", "8")), (CoverSides{.backInside = true}));
  EXPECT_EQ(sidesOf(kTwoSided + covers("2", "15")), (CoverSides{true, true, true, true}));
}

TEST(SheetOrder, ValuesOfCoversWithoutPrintedSides) {
  for (const char* value : {"0", "16", "32"}) {
    const SheetOrder order = orderOf(kTwoSided + covers("2", value));
    EXPECT_EQ(order.covers, Covers::FrontAndBack) << value;
    EXPECT_EQ(order.coverSides, CoverSides{}) << value;
  }
}

TEST(SheetOrder, WithAFrontCoverOnlyTheBacksSidesDoNotCount) {
  EXPECT_EQ(sidesOf(kTwoSided + covers("1", "15")), (CoverSides{true, true, false, false}));
}

TEST(SheetOrder, OneSidedOnlySidesThatFaceUpCount) {
  EXPECT_EQ(sidesOf(kOneSided + covers("2", "15")),
            (CoverSides{.frontOutside = true, .backInside = true}));
}

TEST(SheetOrder, OtherCoverValuesSwitchCoversOffWithAWarning) {
  for (const char* value : {"17", "31", "33", "48", "63", "64", "-1", "+5", " 5", "5 ", "5.0",
                            "0x5", "five", "", "4294967297", "99999999999999999999999"}) {
    const SheetOrder order = orderOf(kBoth + Options{{"VtCoverModeValue", value}});
    EXPECT_EQ(order.covers, Covers::None) << value;
    EXPECT_TRUE(order.inserts) << value;
    EXPECT_THAT(order.warnings, ElementsAre(SheetWarning{Kind::UnknownCoverSides, {}, value}));
  }
}

TEST(SheetOrder, WithoutAChosenCoverThereIsNoneAndAWarning) {
  for (const char* column : {"0", "3", "-1", "both", ""}) {
    const SheetOrder order = orderOf(kBoth + Options{{"VtCovermodeRadioButtonState", column}});
    EXPECT_EQ(order.covers, Covers::None) << column;
    EXPECT_THAT(order.warnings, ElementsAre(SheetWarning{Kind::NoCoverChosen, {}, column}));
  }
}

// Values of the insert keys.

InsertPrinting printingOf(const Options& sides, const char* value) {
  return orderOf(sides + inserts(value, "2")).insertPrinting;
}

TEST(SheetOrder, InsertValueSaysWhichSidesArePrinted) {
  EXPECT_EQ(printingOf(kTwoSided, "0"), InsertPrinting::Blank);
  EXPECT_EQ(printingOf(kTwoSided, "1"), InsertPrinting::Front);
  EXPECT_EQ(printingOf(kTwoSided, "2"), InsertPrinting::Back);
  EXPECT_EQ(printingOf(kTwoSided, "3"), InsertPrinting::FrontAndBack);
}

TEST(SheetOrder, OneSidedInsertsArePrintedOnTheirFrontsAlone) {
  EXPECT_EQ(printingOf(kOneSided, "0"), InsertPrinting::Blank);
  EXPECT_EQ(printingOf(kOneSided, "1"), InsertPrinting::Front);
  EXPECT_EQ(printingOf(kOneSided, "2"), InsertPrinting::Blank);
  EXPECT_EQ(printingOf(kOneSided, "3"), InsertPrinting::Front);
}

TEST(SheetOrder, InsertsWithoutAValueAreBlank) {
  Options job = inserts("", "2");
  EXPECT_EQ(orderOf(job).insertPrinting, InsertPrinting::Blank);
  job.erase("VtPageinsertValue");
  EXPECT_TRUE(orderOf(job).inserts);
}

TEST(SheetOrder, OtherInsertValuesSwitchInsertsOffWithAWarning) {
  for (const char* value : {"4", "-1", "1,", "x", "4294967296"}) {
    const SheetOrder order = orderOf(kBoth + Options{{"VtPageinsertValue", value}});
    EXPECT_FALSE(order.inserts) << value;
    EXPECT_THAT(order.insertPages, IsEmpty()) << value;
    EXPECT_THAT(order.warnings, ElementsAre(SheetWarning{Kind::UnknownInsertSides, {}, value}));
  }
}

std::vector<int> pagesOf(const std::string& list) {
  return orderOf(inserts("0", list)).insertPages;
}

TEST(SheetOrder, ListedPagesAreAscendingAndDistinct) {
  EXPECT_THAT(pagesOf("9,3,5,3,9,"), ElementsAre(3, 5, 9));
  EXPECT_THAT(pagesOf("1"), ElementsAre(1));
  EXPECT_THAT(pagesOf(",,5,,"), ElementsAre(5));
  EXPECT_THAT(pagesOf("007"), ElementsAre(7));
  EXPECT_THAT(pagesOf("2147483647"), ElementsAre(2147483647));
}

TEST(SheetOrder, EntriesThatAreNoPageNumbersAreLeftOutAndNamed) {
  const SheetOrder order =
      orderOf(inserts("0", "0,4,-3,2147483648,5-8,99999999999999999999,x, 6,7"));
  EXPECT_THAT(order.insertPages, ElementsAre(4, 7));
  EXPECT_THAT(order.warnings,
              ElementsAre(SheetWarning{
                  Kind::UnreadablePages, {}, "0,-3,2147483648,5-8,99999999999999999..."}));
}

TEST(SheetOrder, AnEmptyListIsNoInsertsAndAWarning) {
  for (const char* list : {"", ",", ",,,"}) {
    const SheetOrder order = orderOf(inserts("0", list));
    EXPECT_FALSE(order.inserts) << list;
    EXPECT_THAT(order.warnings, ElementsAre(SheetWarning{Kind::NoPagesListed, {}, ""}));
  }
}

TEST(SheetOrder, AListOfJunkHasBothWarnings) {
  const SheetOrder order = orderOf(inserts("0", "a,b"));
  EXPECT_FALSE(order.inserts);
  EXPECT_THAT(order.warnings, ElementsAre(SheetWarning{Kind::UnreadablePages, {}, "a,b"},
                                          SheetWarning{Kind::NoPagesListed, {}, ""}));
}

TEST(SheetOrder, TenThousandEntriesAreTaken) {
  std::string list;
  for (int page = 10000; page > 0; --page)
    list += std::to_string(page) + ",2,";
  const std::vector<int> pages = pagesOf(list);
  ASSERT_EQ(pages.size(), 10000U);
  EXPECT_EQ(pages.front(), 1);
  EXPECT_EQ(pages.back(), 10000);
}

TEST(SheetOrder, ShownValuesArePrintableAndShort) {
  const auto shown = [](const std::string& value) {
    return orderOf(inserts(value, "2")).warnings.at(0).text;
  };
  EXPECT_EQ(shown("\x1b[31m\n\xc3\xa9"), "?[31m???");
  EXPECT_EQ(shown(std::string(40, 'x')), std::string(40, 'x'));
  EXPECT_EQ(shown(std::string(41, 'x')), std::string(37, 'x') + "...");
  EXPECT_EQ(shown(std::string("4\0x", 3)), "4?x");
}

TEST(SheetOrder, CopiesThatAreNoNumberAreOne) {
  EXPECT_EQ(orderOf({{"copies", "3"}}).copies, 3);
  for (const char* copies : {"0", "-2", "x", "", "3x", "99999999999"})
    EXPECT_EQ(orderOf({{"copies", copies}}).copies, 1) << copies;
}

TEST(SheetOrder, CopiesAreCollatedWhenTheJobSaysSo) {
  EXPECT_TRUE(orderOf({{"Collate", "true"}}).collated);
  EXPECT_TRUE(orderOf({{"collate", "Yes"}}).collated);
  EXPECT_FALSE(orderOf({{"collate", "false"}}).collated);
  EXPECT_TRUE(
      orderOf({{"multiple-document-handling", "separate-documents-collated-copies"}}).collated);
  EXPECT_TRUE(orderOf({{"multiple-document-handling", "single-document"}}).collated);
  EXPECT_FALSE(
      orderOf({{"multiple-document-handling", "separate-documents-uncollated-copies"}}).collated);
  EXPECT_TRUE(orderOf({{"sheet-collate", "collated"}}).collated);
  EXPECT_FALSE(orderOf({{"sheet-collate", "uncollated"}}).collated);
}

TEST(SheetOrder, CopiesAreCollatedWhenThePrinterDoesSoOrCannotMakeThatMany) {
  const auto collated = [](const char* copies, const PrinterFacts& printer) {
    return readSheetOrder({{"copies", copies}, {"Collate", "false"}}, printer).collated;
  };
  EXPECT_TRUE(collated("2", {.markedCollate = true}));
  EXPECT_TRUE(collated("2", {.mostCopies = 1}));
  EXPECT_TRUE(collated("100", {.mostCopies = 99}));
  EXPECT_FALSE(collated("99", {.mostCopies = 99}));
  EXPECT_FALSE(collated("2", {}));
}

}  // namespace
}  // namespace publishing
