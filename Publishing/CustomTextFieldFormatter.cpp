// SPDX-License-Identifier: Apache-2.0
#include "Publishing/CustomTextFieldFormatter.h"

namespace publishing {

void CustomTextFieldFormatter::allowsonlyNumericsAndSpecialCharacters(bool only) {
  onlyNumericsAndSpecialCharacters = only;
}

bool CustomTextFieldFormatter::textIsValid(const std::string& text) const {
  if (!onlyNumericsAndSpecialCharacters) return true;
  return text.find_first_not_of("1234567890-,") == std::string::npos;
}

std::optional<std::string> CustomTextFieldFormatter::stringForObjectValue(
    const std::any& object) const {
  const auto* text = std::any_cast<std::string>(&object);
  return text != nullptr ? std::optional(*text) : std::nullopt;
}

bool CustomTextFieldFormatter::getObjectValue(std::any* object, const std::string& text) const {
  const bool valid = textIsValid(text);
  if (valid && object != nullptr) *object = text;
  return valid;
}

bool CustomTextFieldFormatter::isPartialStringValid(const std::string& partialString,
                                                    std::string& newEditingString) const {
  const bool valid = textIsValid(partialString);
  if (valid) newEditingString = partialString;
  return valid;
}

}  // namespace publishing
