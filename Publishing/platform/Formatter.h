// SPDX-License-Identifier: Apache-2.0
// Decides which texts a text field takes while the user edits it.
#pragma once

#include <string>

namespace publishing {

class Formatter {
 public:
  virtual ~Formatter() = default;

  // Whether the field may hold `partialString` (UTF-8), the text as it would be after the edit. On
  // yes, `newEditingString` receives the text to show; on no it is left alone and the edit is to be
  // dropped.
  virtual bool isPartialStringValid(const std::string& partialString,
                                    std::string& newEditingString) const = 0;
};

}  // namespace publishing
