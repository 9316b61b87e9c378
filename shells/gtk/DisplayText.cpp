#include "shells/gtk/DisplayText.h"

#include "shells/gtk/GObjectPtr.h"

namespace publishing {

std::string displayText(const std::string& text) {
  const GCharPtr valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  return valid.get();
}

std::string displayLabel(const std::string& text) {
  std::string label;
  for (const char character : displayText(text)) {
    if (character == '_') label += '_';
    label += character;
  }
  return label;
}

}  // namespace publishing
