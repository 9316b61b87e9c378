// SPDX-License-Identifier: Apache-2.0
#include "shells/DisplayText.h"

#include "base/GlibHandles.h"

namespace publishing {

std::string displayText(const std::string& text) {
  const GlibText valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  return valid.get();
}

std::string displayLabel(const std::string& text, char mark) {
  std::string label;
  for (const char character : displayText(text)) {
    if (character == mark) label += mark;
    label += character;
  }
  return label;
}

}  // namespace publishing
