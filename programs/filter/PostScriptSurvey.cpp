// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/PostScriptSurvey.h"

#include <algorithm>
#include <string_view>

namespace publishing {
namespace {

// Operators that change the page device: those of level 2, and those of level 1.
constexpr std::string_view kDeviceWords[] = {"setpagedevice", "statusdict"};
// A procedure for a page's own size sets this.
constexpr std::string_view kSizeWord = "/PageSize";
constexpr std::size_t kLongestWord = 13;

// Features that do.
constexpr std::string_view kFeatures[] = {"*PageSize",  "*PageRegion", "*InputSlot",
                                          "*MediaType", "*ManualFeed", "*Duplex"};

// Of the comments of two pages that are compared.
constexpr std::size_t kLongestComments = 4096;

// Looks for words in bytes that come in portions.
class WordSearch {
 public:
  // Whether the words are in the portion, or where it meets the one before.
  bool finds(std::string_view portion, std::string_view word) const {
    const std::string seam = tail_ + std::string(portion.substr(0, kLongestWord));
    return seam.find(word) != std::string::npos || portion.find(word) != std::string_view::npos;
  }
  void remember(std::string_view portion) {
    tail_ += portion.substr(portion.size() - std::min(portion.size(), kLongestWord));
    tail_.erase(0, tail_.size() - std::min(tail_.size(), kLongestWord));
  }

 private:
  std::string tail_;
};

bool namesDevice(std::string_view featureComment) {
  return std::any_of(std::begin(kFeatures), std::end(kFeatures), [&](std::string_view feature) {
    return featureComment.find(feature) != std::string_view::npos;
  });
}

}  // namespace

PostScriptSurvey survey(DscReader& document) {
  PostScriptSurvey found;
  WordSearch search;
  std::string pageComments;      // of the first page
  std::string thisPageComments;  // of the present one
  bool hasSizeProcedure = false;
  const auto compare = [&] {
    if (found.pages == 1) pageComments = thisPageComments;
    if (hasSizeProcedure && found.pages > 1 && thisPageComments != pageComments)
      found.pagesChangeDevice = true;
    thisPageComments.clear();
  };
  while (const std::optional<DscPiece> piece = document.next()) {
    if (piece->comment == DscComment::Page) {
      compare();
      ++found.pages;
    } else if (piece->comment == DscComment::PageComment) {
      if (thisPageComments.size() < kLongestComments) thisPageComments += piece->bytes;
    } else if (piece->section == DscSection::Page && !found.pagesChangeDevice) {
      const bool isFeature = piece->comment == DscComment::BeginFeature ||
                             piece->comment == DscComment::IncludeFeature;
      found.pagesChangeDevice =
          (isFeature && namesDevice(piece->bytes)) ||
          std::any_of(std::begin(kDeviceWords), std::end(kDeviceWords),
                      [&](std::string_view word) { return search.finds(piece->bytes, word); });
    } else if (piece->section < DscSection::Page && !hasSizeProcedure) {
      hasSizeProcedure = search.finds(piece->bytes, kSizeWord);
    }
    search.remember(piece->bytes);
  }
  compare();
  return found;
}

}  // namespace publishing
