// SPDX-License-Identifier: Apache-2.0
#include "programs/terminal/Table.h"

#include <algorithm>

#include <glib.h>

namespace publishing {
namespace {

constexpr std::size_t kDistance = 2;

// How many places of a terminal the text takes: letters of East Asian scripts take two.
std::size_t placesOf(const std::string& text) {
  std::size_t places = 0;
  for (const char* at = text.c_str(); *at != '\0'; at = g_utf8_next_char(at)) {
    const gunichar letter = g_utf8_get_char(at);
    if (g_unichar_iszerowidth(letter) != 0) continue;
    places += g_unichar_iswide(letter) != 0 ? 2 : 1;
  }
  return places;
}

}  // namespace

std::vector<std::size_t> Table::widths() const {
  std::vector<std::size_t> widths;
  for (const Row& row : rows_) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], placesOf(row[column]));
  }
  return widths;
}

std::string Table::text() const {
  const std::vector<std::size_t> columns = widths();
  std::string text;
  for (const Row& row : rows_) {
    std::string line;
    std::size_t blanks = 0;  // that belong before the next cell
    for (std::size_t column = 0; column < row.size(); ++column) {
      if (!row[column].empty()) {
        line += std::string(blanks, ' ') + row[column];
        blanks = 0;
      }
      blanks += columns[column] - placesOf(row[column]) + kDistance;
    }
    text += (text.empty() ? "" : "\n") + line;
  }
  return text;
}

}  // namespace publishing
