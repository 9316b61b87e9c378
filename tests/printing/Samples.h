// SPDX-License-Identifier: Apache-2.0
// Files that the tests of printing/ print and open.
#pragma once

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "printing/PrintError.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {

inline const std::string kSamplePPD = TEST_DATA "/zephrel-ps-9000.ppd";

inline const std::string kSamplePostScript =
    "%!PS-Adobe-3.0\n%%Pages: 2\n%%EndComments\n"
    "%%Page: 1 1\n72 72 moveto 144 144 lineto stroke showpage\n"
    "%%Page: 2 2\n72 72 moveto 144 144 lineto stroke showpage\n%%Trailer\n%%EOF\n";

// A PDF of blank A4 pages.
inline std::string samplePDF(int pages) {
  std::string kids;
  std::string text = "%PDF-1.4\n";
  std::string places = "0000000000 65535 f \n";
  const auto add = [&](int number, const std::string& body) {
    std::string place = std::to_string(text.size());
    places += std::string(10 - place.size(), '0') + place + " 00000 n \n";
    text += std::to_string(number) + " 0 obj\n" + body + "\nendobj\n";
  };
  for (int page = 0; page < pages; ++page)
    kids += std::to_string(page + 3) + " 0 R ";
  add(1, "<</Type/Catalog/Pages 2 0 R>>");
  add(2, "<</Type/Pages/Kids[" + kids + "]/Count " + std::to_string(pages) + ">>");
  for (int page = 0; page < pages; ++page)
    add(page + 3, "<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]>>");
  const std::string count = std::to_string(pages + 3);
  const std::string start = std::to_string(text.size());
  return text + "xref\n0 " + count + "\n" + places + "trailer\n<</Size " + count +
         "/Root 1 0 R>>\nstartxref\n" + start + "\n%%EOF\n";
}

// The sample PPD with every `from` replaced by `to`; the test fails when there is none.
inline std::string changedPPD(const std::string& from, const std::string& to) {
  std::string text = contentsOfFile(kSamplePPD);
  std::size_t place = text.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  for (; place != std::string::npos; place = text.find(from, place + to.size()))
    text.replace(place, from.size(), to);
  return text;
}

// The error that the call throws; the test fails when it throws none.
inline PrintError errorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const PrintError& error) {
    return error;
  }
  ADD_FAILURE() << "nothing was thrown";
  return {PrintError::Kind::Usage, ""};
}

}  // namespace publishing
