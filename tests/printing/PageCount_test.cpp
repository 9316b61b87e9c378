// SPDX-License-Identifier: Apache-2.0
#include "printing/PageCount.h"

#include <fstream>

#include <gtest/gtest.h>

#include "tests/printing/Samples.h"

namespace publishing {
namespace {

class PageCount : public ::testing::Test {
 protected:
  std::optional<int> pagesOf(const std::string& contents) const {
    const std::string path = folder_ / "document";
    std::ofstream(path, std::ios::binary) << contents;
    return pagesIn(path);
  }

  TemporaryFolder folder_;
};

TEST_F(PageCount, OfPDFIsThatOfItsPageTree) {
  EXPECT_EQ(pagesOf(samplePDF(1)), 1);
  EXPECT_EQ(pagesOf(samplePDF(1000)), 1000);
  EXPECT_EQ(pagesIn(TEST_DATA "/report.pdf"), 24);
}

TEST_F(PageCount, OfPDFDoesNotBelieveACountThatIsWrong) {
  std::string lying = samplePDF(3);
  lying.replace(lying.find("/Count 3"), 8, "/Count 9");
  EXPECT_EQ(pagesOf(lying), 3);
}

TEST_F(PageCount, OfPDFBehindOtherBytesIsFound) {
  EXPECT_EQ(pagesOf("a line of a mail\n" + samplePDF(2)), 2);
}

TEST_F(PageCount, OfPostScriptIsThatOfItsPageComments) {
  EXPECT_EQ(pagesOf(kSamplePostScript), 2);
  EXPECT_EQ(pagesOf("%!PS-Adobe-3.0\n%%Page: 1 1\n%%BeginDocument: a\n%%Page: 1 1\n"
                    "%%EndDocument\nshowpage\n%%EOF\n"),
            1);
}

TEST_F(PageCount, IsUnknownWithoutPageComments) {
  EXPECT_EQ(pagesOf("%!\nshowpage\n"), std::nullopt);
}

TEST_F(PageCount, IsUnknownForWhatCannotBeRead) {
  EXPECT_EQ(pagesOf(""), std::nullopt);
  EXPECT_EQ(pagesOf("%PDF-1.4\nnothing else"), std::nullopt);
  EXPECT_EQ(pagesOf("a text"), std::nullopt);
  EXPECT_EQ(pagesIn(folder_ / "missing"), std::nullopt);
  EXPECT_EQ(pagesIn(folder_.path()), std::nullopt);
}

}  // namespace
}  // namespace publishing
