// SPDX-License-Identifier: Apache-2.0
// The rules of sheets once more, as what must hold of a finished plan. Nothing is planned here: a
// plan that breaks no rule is the only one for its job.
#pragma once

#include <vector>

#include "sheets/SheetPlan.h"

namespace publishing {

// A job as the panel's keys say it.
struct SheetJob {
  bool twoSided = false;
  bool covers = false;
  int column = 1;  // 1 front cover, 2 front and back cover
  int coverValue = 0;
  bool inserts = false;
  int insertValue = 0;
  std::vector<int> list;
  int pages = 0;
};

// Its order, by way of job options. Media: Leather for covers, Thick for inserts.
SheetOrder orderOf(const SheetJob& job);

// The first rule that the plan breaks, in words; null when it breaks none.
const char* brokenRule(const SheetJob& job, const SheetPlan& plan);

// The same for what the planner promises to whoever passes pages on while they arrive.
const char* brokenPromise(const SheetOrder& order, int pages);

}  // namespace publishing
