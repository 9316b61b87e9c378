// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

#include "Publishing/CustomTextFieldFormatter.h"

namespace publishing {

// Text as other programs write lists of pages, in the characters of a page list: "5 – 7, 9" is
// "5-7,9". Dashes become hyphens, digits of other scripts ASCII ones, blanks and other separators
// commas where they separate pages and nothing elsewhere. What else there is stays as it is.
std::string writtenAsPageList(const std::string& text);

// What the field of the page list takes: all that the panel's own formatter takes when it is
// written as a page list.
class PageListWriting final : public Formatter {
 public:
  // `refused` is called with the characters because of which an edit was dropped.
  explicit PageListWriting(std::function<void(const std::string& characters)> refused);

  bool isPartialStringValid(const std::string& partialString,
                            std::string& newEditingString) const override;

  // Calls nobody any more.
  void fallSilent() { refused_ = nullptr; }

 private:
  CustomTextFieldFormatter formatter_;
  std::function<void(const std::string& characters)> refused_;
};

}  // namespace publishing
