// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPictureSVG.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace publishing {
namespace {

using Shape = PictureShape;

constexpr const char* kReplacement = "\uFFFD";
constexpr const char* kBackground = "#fcfcfc";

// Two decimals at most; the same in every locale.
std::string number(double value) {
  char digits[32];
  const double rounded = std::round(value * 100) / 100;
  const auto end = std::to_chars(digits, digits + sizeof(digits), rounded == 0 ? 0 : rounded);
  return {digits, end.ptr};
}

std::string colour(PicturePaint paint, PicturePaper paper) {
  const PictureColour rgb = colourOf(paint, paper);
  char text[8];
  std::snprintf(text, sizeof(text), "#%02x%02x%02x", rgb.red & 0xFF, rgb.green & 0xFF,
                rgb.blue & 0xFF);
  return text;
}

bool isXMLCharacter(std::uint32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code < 0xD800 || (code > 0xDFFF && code < 0xFFFE) || (code > 0xFFFF && code <= 0x10FFFF);
}

// The bytes of the character at `at`; 0 when there is no sound one.
std::size_t bytesAt(const std::string& text, std::size_t at) {
  const auto byte = [&text](std::size_t place) { return static_cast<unsigned char>(text[place]); };
  const unsigned char lead = byte(at);
  if (lead < 0x80) return isXMLCharacter(lead) ? 1 : 0;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || at + length > text.size()) return 0;
  std::uint32_t code = lead & (0x7FU >> length);
  for (std::size_t place = at + 1; place < at + length; ++place) {
    if ((byte(place) & 0xC0) != 0x80) return 0;
    code = code << 6 | (byte(place) & 0x3FU);
  }
  constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  return code >= kSmallest[length] && isXMLCharacter(code) ? length : 0;
}

std::string escaped(const std::string& text) {
  std::string safe;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t bytes = bytesAt(text, at);
    if (bytes == 0) {
      safe += kReplacement;
    } else if (text[at] == '&') {
      safe += "&amp;";
    } else if (text[at] == '<') {
      safe += "&lt;";
    } else if (text[at] == '>') {
      safe += "&gt;";
    } else {
      safe.append(text, at, bytes);
    }
    at += bytes == 0 ? 1 : bytes;
  }
  return safe;
}

std::string pathData(const std::vector<std::vector<PicturePoint>>& paths, bool isClosed) {
  std::string data;
  for (const std::vector<PicturePoint>& path : paths) {
    char command = 'M';
    for (const PicturePoint& point : path) {
      data += command + number(point.x) + ' ' + number(point.y);
      command = 'L';
    }
    if (isClosed) data += 'Z';
  }
  return data;
}

std::string element(const Shape& shape) {
  const std::string paint = colour(shape.paint, shape.paper);
  if (shape.kind == Shape::Kind::Area)
    return "<path fill=\"" + paint + "\" d=\"" + pathData(shape.paths, true) + "\"/>";
  if (shape.kind == Shape::Kind::Lines)
    return "<path fill=\"none\" stroke=\"" + paint + "\" stroke-width=\"" + number(shape.size) +
           "\" d=\"" + pathData(shape.paths, false) + "\"/>";

  // The middle of digits and capitals lies about a third of the height above the base line;
  // dominant-baseline would say it better, but not every viewer knows it.
  constexpr double kMiddle = 0.36;
  const char* const anchors[] = {"start", "middle", "end"};
  const PicturePoint at = shape.paths.front().front();
  return "<text x=\"" + number(at.x) + "\" y=\"" + number(at.y + kMiddle * shape.size) +
         "\" font-size=\"" + number(shape.size) + "\" text-anchor=\"" +
         anchors[static_cast<std::size_t>(shape.anchor)] + "\" fill=\"" + paint + "\">" +
         escaped(shape.text) + "</text>";
}

}  // namespace

std::string writePictureSVG(const SheetPicture& picture, const std::string& title) {
  const std::string width = number(picture.width);
  const std::string height = number(picture.height);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" +
                    height + "\" viewBox=\"0 0 " + width + " " + height +
                    "\" role=\"img\" font-family=\"sans-serif\">\n";
  if (!title.empty()) svg += "<title>" + escaped(title) + "</title>\n";
  svg +=
      "<rect width=\"100%\" height=\"100%\" rx=\"6\" fill=\"" + std::string(kBackground) + "\"/>\n";
  for (const Shape& shape : picture.shapes)
    svg += element(shape) + '\n';
  return svg + "</svg>\n";
}

}  // namespace publishing
