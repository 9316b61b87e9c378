// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/SheetsReport.h"

#include <vector>

#include "base/Translation.h"
#include "programs/terminal/Table.h"
#include "sheets/SheetPictureItems.h"

namespace publishing {
namespace {

using nlohmann::ordered_json;

constexpr const char* kDash = "\u2013";
constexpr const char* kDots = " \u2026 ";

std::string numbers(std::size_t first, std::size_t last) {
  return std::to_string(first) + (first == last ? "" : kDash + std::to_string(last));
}

// The pages on the same side of like sheets.
std::string pages(int first, int last) {
  if (first == kBlankSide) return translated("blank");
  return std::to_string(first) + (first == last ? "" : kDots + std::to_string(last));
}

std::string sheetTable(const JobSheets& job) {
  Table table;
  Table::Row header = {translated("Sheet"), translated("Paper"), translated("Front")};
  if (job.order.twoSided) header.push_back(translated("Back"));
  table.add(header);
  const std::vector<Sheet>& sheets = job.plan->sheets;
  for (const PictureItem& item : itemsOf(*job.plan, [](int) { return std::string(); })) {
    const Sheet& first = sheets[item.first];
    const Sheet& last = sheets[item.first + item.count - 1];
    Table::Row row = {numbers(item.first + 1, item.first + item.count),
                      job.media.textOf(first.medium), pages(first.front, last.front)};
    if (job.order.twoSided)
      row.push_back(pages(first.back.value_or(kBlankSide), last.back.value_or(kBlankSide)));
    table.add(row);
  }
  return table.text();
}

std::string totalTable(const JobSheets& job) {
  Table table;
  table.add({translated("Sheets"), translated("Paper")});
  for (const MediumTotal& total : mediumTotals(*job.plan))
    table.add({std::to_string(total.sheets), job.media.textOf(total.medium)});
  return table.text();
}

}  // namespace

std::string tableOf(const JobSheets& job) {
  return sheetTable(job) + "\n\n" + totalTable(job);
}

ordered_json asJson(const JobSheets& job) {
  const auto name = [&job](const std::string& medium) {
    return mediumName(medium, job.media.bodyKeyword);
  };
  ordered_json sheets = ordered_json::array();
  for (const Sheet& sheet : job.plan->sheets) {
    sheets.push_back({{"sheet", sheets.size() + 1},
                      {"role", nameOf(sheet.role)},
                      {"medium", name(sheet.medium)},
                      {"front", sheet.front},
                      {"back", sheet.back ? ordered_json(*sheet.back) : ordered_json(nullptr)}});
  }
  ordered_json totals = ordered_json::array();
  for (const MediumTotal& total : mediumTotals(*job.plan))
    totals.push_back({{"medium", name(total.medium)}, {"sheets", total.sheets}});
  return {{"sheets", sheets},
          {"copies", job.plan->copies},
          {"totals", totals},
          {"warnings", warningsOf(job)}};
}

}  // namespace publishing
