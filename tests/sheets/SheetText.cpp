// SPDX-License-Identifier: Apache-2.0
#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

char letterOf(SheetRole role) {
  switch (role) {
    case SheetRole::FrontCover:
    case SheetRole::BackCover:
      return 'C';
    case SheetRole::Insert:
      return 'I';
    case SheetRole::Body:
      break;
  }
  return 'B';
}

std::string side(int page) {
  return page == kBlankSide ? "-" : std::to_string(page);
}

void add(std::string& line, const std::string& word) {
  if (!line.empty()) line += ' ';
  line += word;
}

}  // namespace

std::string written(const Sheet& sheet) {
  std::string text = letterOf(sheet.role) + side(sheet.front);
  if (sheet.back) text += '|' + side(*sheet.back);
  return text;
}

std::string written(const std::vector<Sheet>& sheets) {
  std::string line;
  for (const Sheet& sheet : sheets)
    add(line, written(sheet));
  return line;
}

std::string printed(const SheetPlan& plan) {
  std::string line;
  for (std::int64_t index = 0; index < plan.sheetCount(); ++index)
    add(line, written(plan.sheetAt(index)));
  return line;
}

std::string written(const std::vector<SheetSide>& sides) {
  std::string line;
  for (const SheetSide& one : sides)
    add(line, (one.isBack ? "" : std::string(1, letterOf(one.role))) + side(one.page));
  return line;
}

Options covers(const std::string& column, const std::string& value) {
  return {{"VtCoverModeState", "On"},
          {"VtCoverModeValue", value},
          {"VtCovermodeRadioButtonState", column},
          {"CoverMediaType", "Leather"}};
}

Options inserts(const std::string& value, const std::string& pages) {
  return {{"VtPageinsertState", "On"},
          {"VtPageinsertValue", value},
          {"VtPageinsertNums", pages},
          {"PageMediaType", "Thick"}};
}

Options operator+(Options options, const Options& more) {
  for (const auto& [name, value] : more)
    options[name] = value;
  return options;
}

SheetOrder orderOf(const Options& options) {
  return readSheetOrder(options, PrinterFacts{});
}

}  // namespace publishing
