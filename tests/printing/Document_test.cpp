// SPDX-License-Identifier: Apache-2.0
#include "printing/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/printing/Samples.h"

namespace publishing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

TEST(Document, KnowsWhatItHoldsByItsFirstBytes) {
  const struct {
    std::string contents;
    const char* format;
  } table[] = {
      {samplePDF(1), "application/pdf"},
      {"\xEF\xBB\xBF\n" + samplePDF(1), "application/pdf"},
      {kSamplePostScript, "application/postscript"},
      {"\004" + kSamplePostScript, "application/postscript"},
      {"\033%-12345X@PJL ENTER LANGUAGE=POSTSCRIPT\n" + kSamplePostScript,
       "application/postscript"},
  };
  const TemporaryFolder folder;
  for (const auto& row : table) {
    const Document document(folder.file("document", row.contents));
    EXPECT_STREQ(document.format(), row.format);
    EXPECT_EQ(document.size(), row.contents.size());
  }
}

TEST(Document, RefusesWhatNoPrinterCouldPrintAndNamesTheFile) {
  const TemporaryFolder folder;
  const struct {
    std::string path;
    const char* reason;
  } table[] = {
      {folder / "missing.pdf", "No such file"},
      {folder.path(), "folder"},
      {folder.file("empty.pdf", ""), "empty"},
      {folder.file("letter.txt", "Dear Sir"), "neither PDF nor PostScript"},
      {folder.file("notes.txt", "50%! more"), "neither PDF nor PostScript"},
      {folder.file("job.prn", "\033%-12345X@PJL RESET\n"), "neither PDF nor PostScript"},
      {"/dev/zero", "neither a file nor a pipe"},
  };
  for (const auto& row : table) {
    const PrintError error = errorOf([&row] { const Document document(row.path); });
    EXPECT_EQ(error.kind(), PrintError::Kind::Trouble);
    EXPECT_THAT(error.what(), AllOf(HasSubstr(row.path), HasSubstr(row.reason)));
  }
}

TEST(Document, ReadsFromTheBeginningToTheEnd) {
  const TemporaryFolder folder;
  for (const std::string& contents : {kSamplePostScript, samplePDF(100)}) {
    Document document(folder.file("document", contents));
    std::string bytes;
    char buffer[100];
    while (const std::size_t length = document.read(buffer, sizeof buffer))
      bytes.append(buffer, length);
    EXPECT_EQ(bytes, contents);
  }
}

TEST(Document, TitleIsTheFileNameInOneLine) {
  const TemporaryFolder folder;
  EXPECT_EQ(Document(folder.file("my file.pdf", samplePDF(1))).defaultTitle(), "my file.pdf");
  EXPECT_EQ(Document(folder.file("a\nb;`c`.pdf", samplePDF(1))).defaultTitle(), "a b;`c`.pdf");
}

}  // namespace
}  // namespace publishing
