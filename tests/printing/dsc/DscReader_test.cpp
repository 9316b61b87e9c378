// SPDX-License-Identifier: Apache-2.0
#include "printing/dsc/DscReader.h"

#include <ostream>

#include <gmock/gmock.h>

#include "tests/printing/dsc/Pieces.h"

namespace publishing {
namespace {

using ::testing::ElementsAreArray;

struct Case {
  const char* name;
  std::string document;
  std::vector<std::string> pieces;
};

void PrintTo(const Case& tried, std::ostream* out) {
  *out << tried.document.size() << " bytes";
}

std::string withLineEnds(std::string text, const std::string& lineEnd) {
  for (std::size_t place = 0; (place = text.find('\n', place)) != std::string::npos;
       place += lineEnd.size())
    text.replace(place, 1, lineEnd);
  return text;
}

const char* const kOrdinary =
    "%!PS-Adobe-3.0\n%%Pages: 2\n%%Title: (x)\n%%EndComments\n%%BeginProlog\n/a{}def\n"
    "%%EndProlog\n%%BeginSetup\n%%BeginFeature: *A b\nb\n%%EndFeature\n%%EndSetup\n"
    "%%Page: 1 1\n%%PageMedia: A4\n%%BeginPageSetup\n%%EndPageSetup\na\nshowpage\n"
    "%%PageTrailer\n%%Page: (two) 2\na\n%%Trailer\nend\n%%Pages: 2\n%%EOF\nrest";

const Case kCases[] = {
    {"AnOrdinaryDocument",
     kOrdinary,
     {"Header Start |%!PS-Adobe-3.0\\n|",
      "Header Pages |%%Pages: 2\\n|",
      "Header None |%%Title: (x)\\n|",
      "Prolog EndComments |%%EndComments\\n|",
      "Prolog BeginProlog |%%BeginProlog\\n|",
      "Prolog None |/a{}def\\n%%EndProlog\\n|",
      "Setup BeginSetup |%%BeginSetup\\n|",
      "Setup BeginFeature |%%BeginFeature: *A b\\n|",
      "Setup None |b\\n%%EndFeature\\n|",
      "Setup EndSetup |%%EndSetup\\n|",
      "Page Page |%%Page: 1 1\\n|",
      "Page PageComment |%%PageMedia: A4\\n|",
      "Page BeginPageSetup |%%BeginPageSetup\\n|",
      "Page None |%%EndPageSetup\\na\\nshowpage\\n%%PageTrailer\\n|",
      "Page Page |%%Page: (two) 2\\n|",
      "Page None |a\\n|",
      "Trailer Trailer |%%Trailer\\n|",
      "Trailer None |end\\n|",
      "Trailer Pages |%%Pages: 2\\n|",
      "After Eof |%%EOF\\n|",
      "After None |rest|"}},
    {"CommandsForThePrinterBeforeIt",
     "\033%-12345X@PJL JOB\n@PJL ENTER LANGUAGE=POSTSCRIPT \n%!PS\n%%Page: 1 1\n",
     {"Preamble None |\033%-12345X@PJL JOB\\n@PJL ENTER LANGUAGE=POSTSCRIPT \\n|",
      "Header Start |%!PS\\n|", "Page Page |%%Page: 1 1\\n|"}},
    {"NoPostScriptAtAll", "%%Page: 1 1\nx %!PS\n", {"Preamble None |%%Page: 1 1\\nx %!PS\\n|"}},
    {"ACommentInsideALineIsNone",
     "%!\n%%Page: 1 1\n(a) %%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|", "Page None |(a) %%Page: 2 2\\n|"}},
    {"EmbeddedDocumentsAreNoStructure",
     "%!\n%%Page: 1 1\n%%BeginDocument: a\n%%Page: 1 9\n%%BeginDocument: b\n%%Page: 2 9\n"
     "%%EndDocument\n%%Trailer\n%%EOF\n%%EndDocument\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginDocument: a\\n%%Page: 1 9\\n%%BeginDocument: b\\n%%Page: 2 9\\n"
      "%%EndDocument\\n%%Trailer\\n%%EOF\\n%%EndDocument\\n|",
      "Page Page |%%Page: 2 2\\n|"}},
    {"ApplicationsThatAreEmbeddedTheirOwnWayAreNoneEither",
     "%!\n%%Page: 1 1\n%ADO_BeginApplication\n%%Page: 1 9\n%ADO_EndApplication\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%ADO_BeginApplication\\n%%Page: 1 9\\n%ADO_EndApplication\\n|",
      "Page Page |%%Page: 2 2\\n|"}},
    {"AnEmbeddedDocumentThatDoesNotEnd",
     "%!\n%%Page: 1 1\n%%BeginDocument: a\n%%Page: 2 2\n%%Trailer\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginDocument: a\\n%%Page: 2 2\\n%%Trailer\\n|"}},
    {"AnEndWithoutABeginningChangesNothing",
     "%!\n%%Page: 1 1\n%%EndDocument\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|", "Page None |%%EndDocument\\n|",
      "Page Page |%%Page: 2 2\\n|"}},
    {"BytesOfData",
     "%!\n%%Page: 1 1\n%%BeginData: 12 Binary Bytes\n%%Page: 3 3\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginData: 12 Binary Bytes\\n%%Page: 3 3\\n|", "Page Page |%%Page: 2 2\\n|"}},
    {"BinaryData",
     "%!\n%%Page: 1 1\n%%BeginBinary: 11\n\n%%Page: 3 \n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginBinary: 11\\n\\n%%Page: 3 \\n|", "Page Page |%%Page: 2 2\\n|"}},
    {"DataInAnEmbeddedDocument",
     "%!\n%%Page: 1 1\n%%BeginDocument: a\n%%BeginBinary: 14\n%%EndDocument\n%%Page: 1 9\n"
     "%%EndDocument\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginDocument: a\\n%%BeginBinary: 14\\n%%EndDocument\\n%%Page: 1 9\\n"
      "%%EndDocument\\n|",
      "Page Page |%%Page: 2 2\\n|"}},
    {"LinesOfData",
     "%!\n%%Page: 1 1\n%%BeginData: 2 Hex Lines\n%%Page: 3 3\n00ff\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginData: 2 Hex Lines\\n%%Page: 3 3\\n00ff\\n|",
      "Page Page |%%Page: 2 2\\n|"}},
    {"DataBeforeThePages",
     "%!\n%%BeginProlog\n%%BeginBinary: 12\n%%Page: 3 3\n%%Page: 1 1\n",
     {"Header Start |%!\\n|", "Prolog BeginProlog |%%BeginProlog\\n|",
      "Prolog None |%%BeginBinary: 12\\n%%Page: 3 3\\n|", "Page Page |%%Page: 1 1\\n|"}},
    {"MoreDataThanThereIs",
     "%!\n%%Page: 1 1\n%%BeginBinary: 99999999999\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginBinary: 99999999999\\n%%Page: 2 2\\n|"}},
    {"DataWithoutANumber",
     "%!\n%%Page: 1 1\n%%BeginBinary: many\n%%BeginData:\n%%BeginData: -3\n"
     "%%BeginBinary: 99999999999999999999999\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|",
      "Page None |%%BeginBinary: many\\n%%BeginData:\\n%%BeginData: -3\\n"
      "%%BeginBinary: 99999999999999999999999\\n|",
      "Page Page |%%Page: 2 2\\n|"}},
    {"LineEndsOfAllKinds",
     "%!\r%%Page: 1 1\r\nx\r\r\n\n%%Page: 2 2\n\r%%Page: 3 3\r",
     {"Header Start |%!\\r|", "Page Page |%%Page: 1 1\\r\\n|", "Page None |x\\r\\r\\n\\n|",
      "Page Page |%%Page: 2 2\\n|", "Page None |\\r|", "Page Page |%%Page: 3 3\\r|"}},
    {"PagesAfterTheTrailerAreNone",
     "%!\n%%Page: 1 1\n%%Trailer\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|", "Trailer Trailer |%%Trailer\\n|",
      "Trailer None |%%Page: 2 2\\n|"}},
    {"NothingCountsBehindTheEnd",
     "%!\n%%Page: 1 1\n%%EOF\n%!\n%%Page: 2 2\n%%BeginBinary: 9\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|", "After Eof |%%EOF\\n|",
      "After None |%!\\n%%Page: 2 2\\n%%BeginBinary: 9\\n|"}},
    {"ALastLineWithoutAnEnd",
     "%!\n%%Page: 1 1\n%%Page: 2 2",
     {"Header Start |%!\\n|", "Page Page |%%Page: 1 1\\n|", "Page Page |%%Page: 2 2|"}},
    {"LongLines",
     "%!\n%%Page: (" + std::string(700, 'a') + ") 1\n%" + std::string(500, '%') + "\n(" +
         std::string(300, 'b') + "%%Page: 2 2)\n%%Page: 2 2\n",
     {"Header Start |%!\\n|", "Page Page |%%Page: (" + std::string(700, 'a') + ") 1\\n|",
      "Page None |%" + std::string(500, '%') + "\\n(" + std::string(300, 'b') + "%%Page: 2 2)\\n|",
      "Page Page |%%Page: 2 2\\n|"}},
    {"Nothing", "", {}},
    {"APercentSign", "%", {"Preamble None |%|"}},
};

class DscDocument : public ::testing::TestWithParam<Case> {};

TEST_P(DscDocument, IsTakenApart) {
  EXPECT_THAT(piecesOf(GetParam().document), ElementsAreArray(GetParam().pieces));
}

// What is read at once and how much room there is makes no difference.
TEST_P(DscDocument, IsTakenApartTheSameInAnyPortions) {
  for (const std::size_t portion : {1U, 2U, 3U, 7U, 1000U}) {
    for (std::size_t size = DscReader::kSmallestBuffer; size < 80; ++size) {
      DscReader reader(sourceOf(GetParam().document, portion), size);
      EXPECT_THAT(piecesOf(reader), ElementsAreArray(GetParam().pieces))
          << "portions of " << portion << ", buffer of " << size;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(DscReader, DscDocument, ::testing::ValuesIn(kCases),
                         [](const auto& tried) { return std::string(tried.param.name); });

TEST(DscReader, TakesAllLineEndsAlike) {
  for (const char* lineEnd : {"\r", "\r\n"}) {
    const std::string escaped = std::string(lineEnd) == "\r" ? "\\r" : "\\r\\n";
    std::vector<std::string> expected = piecesOf(kOrdinary);
    for (std::string& piece : expected) {
      for (std::size_t place = 0; (place = piece.find("\\n", place)) != std::string::npos;
           place += escaped.size())
        piece.replace(place, 2, escaped);
    }
    EXPECT_EQ(piecesOf(withLineEnds(kOrdinary, lineEnd)), expected);
  }
}

TEST(DscReader, LosesNoByteOfAnyDocument) {
  for (const Case& tried : kCases) {
    DscReader reader(sourceOf(tried.document, 5), 33);
    std::string all;
    while (const auto piece = reader.next()) {
      EXPECT_FALSE(piece->bytes.empty());
      all += piece->bytes;
    }
    EXPECT_EQ(all, tried.document);
  }
}

TEST(DscReader, PassesOnWhatTheSourceThrows) {
  DscReader reader([](char*, std::size_t) -> std::size_t { throw std::string("broken"); });
  EXPECT_THROW(reader.next(), std::string);
}

}  // namespace
}  // namespace publishing
