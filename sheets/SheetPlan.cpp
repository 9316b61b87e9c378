// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPlan.h"

#include <algorithm>

namespace publishing {
namespace {

void append(std::vector<Sheet>& sheets, const std::vector<SheetSide>& sides,
            const SheetOrder& order) {
  for (const SheetSide& side : sides) {
    if (!side.isBack) {
      sheets.push_back({side.role, order.mediumOf(side.role), side.page, {}, side.sizedAs});
    } else {
      sheets.back().back = side.page;
    }
  }
}

}  // namespace

SheetPlan planSheets(const SheetOrder& order, int pages) {
  SheetPlan plan = {
      .sheets = {}, .copies = order.copies, .collated = order.collated, .warnings = order.warnings};
  SheetPlanner planner(order);
  for (int page = 1; page <= pages; ++page)
    append(plan.sheets, planner.addPage(), order);
  append(plan.sheets, planner.finish(), order);

  const std::vector<SheetWarning> missed = planner.warnings();
  plan.warnings.insert(plan.warnings.end(), missed.begin(), missed.end());
  return plan;
}

std::int64_t SheetPlan::sheetCount() const {
  return static_cast<std::int64_t>(sheets.size()) * copies;
}

const Sheet& SheetPlan::sheetAt(std::int64_t index) const {
  const auto place = static_cast<std::size_t>(index);
  return collated ? sheets[place % sheets.size()]
                  : sheets[place / static_cast<std::size_t>(copies)];
}

std::vector<MediumTotal> mediumTotals(const SheetPlan& plan) {
  std::vector<MediumTotal> totals;
  for (const Sheet& sheet : plan.sheets) {
    auto total = std::find_if(totals.begin(), totals.end(), [&sheet](const MediumTotal& entry) {
      return entry.medium == sheet.medium;
    });
    if (total == totals.end()) total = totals.insert(total, {sheet.medium, 0});
    total->sheets += plan.copies;
  }
  return totals;
}

std::vector<MediumRun> mediumRuns(const SheetPlan& plan) {
  std::vector<MediumRun> runs;
  for (std::size_t index = 0; index < plan.sheets.size(); ++index) {
    const std::string& medium = plan.sheets[index].medium;
    if (runs.empty() || runs.back().medium != medium) runs.push_back({medium, index, 0});
    ++runs.back().count;
  }
  return runs;
}

}  // namespace publishing
