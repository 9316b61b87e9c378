// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPictureText.h"

namespace publishing {
namespace {

constexpr const char* kDots = "\u2026";
constexpr char kDash[] = "\u2013";

unsigned char byteAt(const std::string& text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool continues(const std::string& text, std::size_t at) {
  return at < text.size() && (byteAt(text, at) & 0xC0) == 0x80;
}

// The place behind the character at `at`.
std::size_t next(const std::string& text, std::size_t at) {
  do
    ++at;
  while (continues(text, at));
  return at;
}

// Of one character, in its height. From U+1100 on (three bytes from 0xE1 on) scripts may be as wide
// as they are high; U+2000 to U+2FFF (0xE2) is punctuation and signs.
double widthAt(const std::string& text, std::size_t at) {
  const unsigned char lead = byteAt(text, at);
  const bool isWide = lead == 0xE1 || lead > 0xE2;
  return isWide ? 1 : 0.64;
}

}  // namespace

std::size_t lengthOf(const std::string& text) {
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size(); at = next(text, at))
    ++length;
  return length;
}

double widthOf(const std::string& text, double size) {
  double width = 0;
  for (std::size_t at = 0; at < text.size(); at = next(text, at))
    width += widthAt(text, at);
  return width * size;
}

std::string fitted(const std::string& text, double size, double width) {
  if (widthOf(text, size) <= width) return text;
  std::size_t end = 0;
  double left = width - widthOf(kDots, size);
  while (end < text.size() && (left -= widthAt(text, end) * size) >= 0)
    end = next(text, end);
  return text.substr(0, end) + kDots;
}

std::size_t afterDash(const std::string& text) {
  const std::size_t dash = text.find(kDash);
  return dash == std::string::npos ? 0 : dash + sizeof(kDash) - 1;
}

}  // namespace publishing
