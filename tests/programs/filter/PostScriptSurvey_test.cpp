// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/PostScriptSurvey.h"

#include <gtest/gtest.h>

#include "tests/printing/dsc/Pieces.h"

namespace publishing {
namespace {

struct Case {
  const char* name;
  std::string document;
  int pages;
  bool changes;
};

const std::string kPages = "%%Page: 1 1\nshowpage\n%%Page: 2 2\nshowpage\n";
const std::string kSizeProcedure = "%!PS-Adobe-3.0\n/size{<</PageSize 3 index>>setpagedevice}def\n";

const Case kCases[] = {
    {"OrdinaryPages", "%!PS-Adobe-3.0\n" + kPages, 2, false},
    {"NoPageComments", "%!\nshowpage\n", 0, false},
    {"ANumberInHeadAlone", "%!PS-Adobe-3.0\n%%Pages: 7\n%%EndComments\nshowpage\n", 0, false},
    {"NotAtTheBeginning", "\004%!PS-Adobe-3.0\n" + kPages, 0, false},
    {"APageThatSetsItsSize", "%!\n" + kPages + "%%Page: 3 3\n<</PageSize[9 9]>>setpagedevice\n", 3,
     true},
    {"APageThatSetsItsTray", "%!\n" + kPages + "%%Page: 3 3\nstatusdict begin 1 setpapertray end\n",
     3, true},
    {"AFeatureToBeIncluded", "%!\n%%Page: 1 1\n%%IncludeFeature: *PageSize A5\nshowpage\n", 1,
     true},
    {"AFeatureOfAPage", "%!\n%%Page: 1 1\n%%BeginFeature: *InputSlot Tray2\n%%EndFeature\n", 1,
     true},
    {"AnotherFeatureOfAPage", "%!\n%%Page: 1 1\n%%BeginFeature: *Smoothing On\n%%EndFeature\n", 1,
     false},
    {"TheSetupMaySetTheDevice", "%!\n%%BeginSetup\n<<>>setpagedevice\n%%EndSetup\n" + kPages, 2,
     false},
    {"ASizeProcedureAndPagesOfOneSize",
     kSizeProcedure + "%%Page: 1 1\n%%PageMedia: A4\nsize\n%%Page: 2 2\n%%PageMedia: A4\nsize\n", 2,
     false},
    {"ASizeProcedureAndPagesOfTwoSizes",
     kSizeProcedure + "%%Page: 1 1\n%%PageMedia: A4\nsize\n%%Page: 2 2\n%%PageMedia: A3\nsize\n", 2,
     true},
    {"PagesOfTwoSizesWithoutAProcedure",
     "%!\n%%Page: 1 1\n%%PageBoundingBox: 0 0 9 9\nx\n%%Page: 2 2\n%%PageBoundingBox: 0 0 8 8\n", 2,
     false},
};

class Survey : public ::testing::TestWithParam<Case> {};

// However the document is portioned: a word may be cut in two.
TEST_P(Survey, TellsHowThePagesAre) {
  for (const std::size_t portion : {1U, 5U, 1000U}) {
    DscReader reader(sourceOf(GetParam().document, portion), 40);
    const PostScriptSurvey found = survey(reader);
    EXPECT_EQ(found.pages, GetParam().pages);
    EXPECT_EQ(found.pagesChangeDevice, GetParam().changes) << "portions of " << portion;
  }
}

INSTANTIATE_TEST_SUITE_P(PostScriptSurvey, Survey, ::testing::ValuesIn(kCases),
                         [](const auto& tried) { return std::string(tried.param.name); });

}  // namespace
}  // namespace publishing
