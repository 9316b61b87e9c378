// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <any>
#include <optional>
#include <string>

#include "Publishing/platform/Formatter.h"

namespace publishing {

// Keeps everything but digits, "-" and "," out of the page-number field once it is switched on. It
// looks at characters only; whether they make a page list is ParsePageNumber's business.
class CustomTextFieldFormatter final : public Formatter {
 public:
  void allowsonlyNumericsAndSpecialCharacters(bool only);

  // True when filtering is off or `text` holds permitted characters only.
  [[nodiscard]] bool textIsValid(const std::string& text) const;

  // The text to show for a field's value: the value itself when it is a std::string, else nothing.
  [[nodiscard]] std::optional<std::string> stringForObjectValue(const std::any& object) const;

  // Whether `text` is valid; if so and `object` is not null, stores a copy of it there.
  bool getObjectValue(std::any* object, const std::string& text) const;

  bool isPartialStringValid(const std::string& partialString,
                            std::string& newEditingString) const override;

 private:
  bool onlyNumericsAndSpecialCharacters = false;
};

}  // namespace publishing
