// SPDX-License-Identifier: Apache-2.0
// Planner and rules on all small jobs.
#include "tests/sheets/SheetRules.h"

#include <algorithm>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "sheets/SheetPlan.h"
#include "tests/sheets/SheetText.h"

namespace publishing {
namespace {

constexpr int kMostPages = 12;

// None, each place that matters, neighbours, all, and pages that are not there.
const std::vector<std::vector<int>> kLists = {{},
                                              {1, 12},
                                              {2},
                                              {3, 6, 9},
                                              {4, 5, 6},
                                              {1, 2, 11},
                                              {7, 400},
                                              {2, 4, 6, 8, 10, 12, 13},
                                              {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}};

std::string described(const SheetJob& job) {
  std::string text =
      std::to_string(job.pages) + " pages, " + (job.twoSided ? "two-sided" : "one-sided");
  if (job.covers)
    text += ", covers " + std::to_string(job.column) + " value " + std::to_string(job.coverValue);
  if (job.inserts) {
    text += ", inserts value " + std::to_string(job.insertValue) + " at";
    for (const int page : job.list)
      text += ' ' + std::to_string(page);
  }
  return text;
}

// Every job that differs in sides, covers and inserts, whatever its number of pages; stops at the
// first failure.
void forEachWish(const std::function<void(const SheetJob&)>& visit) {
  SheetJob job;
  for (const bool twoSided : {false, true}) {
    job.twoSided = twoSided;
    for (job.column = 0; job.column <= 2; ++job.column) {
      job.covers = job.column > 0;
      for (job.coverValue = 0; job.coverValue < (job.covers ? 64 : 1); ++job.coverValue) {
        for (const std::vector<int>& list : kLists) {
          job.list = list;
          job.inserts = !list.empty();
          for (job.insertValue = 0; job.insertValue < (job.inserts ? 4 : 1); ++job.insertValue) {
            visit(job);
            if (testing::Test::HasFatalFailure()) return;
          }
        }
      }
    }
  }
}

TEST(SheetRules, HoldForAllSmallJobs) {
  int jobs = 0;
  forEachWish([&jobs](SheetJob job) {
    const SheetOrder order = orderOf(job);
    for (job.pages = 0; job.pages <= kMostPages; ++job.pages) {
      const SheetPlan plan = planSheets(order, job.pages);
      const char* broken = brokenRule(job, plan);
      ASSERT_EQ(broken, nullptr) << broken << ": " << described(job) << ": " << printed(plan);
      ++jobs;
    }
  });
  EXPECT_GT(jobs, 100000);
}

TEST(SheetRules, TheStreamKeepsItsPromises) {
  forEachWish([](SheetJob job) {
    job.pages = kMostPages;
    const char* broken = brokenPromise(orderOf(job), job.pages);
    ASSERT_EQ(broken, nullptr) << broken << ": " << described(job);
  });
}

// Plans that differ a little from a right one.
std::vector<SheetPlan> spoiled(const SheetPlan& plan) {
  std::vector<SheetPlan> plans;
  const auto add = [&plans, &plan](const std::function<void(std::vector<Sheet>&)>& spoil) {
    SheetPlan copy = plan;
    spoil(copy.sheets);
    if (copy.sheets != plan.sheets) plans.push_back(copy);
  };
  for (std::size_t i = 0; i < plan.sheets.size(); ++i) {
    const auto at = static_cast<std::ptrdiff_t>(i);
    add([at](auto& sheets) { sheets.erase(sheets.begin() + at); });
    add([at](auto& sheets) {
      sheets.insert(sheets.begin() + at, sheets[static_cast<std::size_t>(at)]);
    });
    add([i](auto& sheets) { std::swap(sheets[i], sheets[(i + 1) % sheets.size()]); });
    add([i](auto& sheets) { sheets[i].front = kBlankSide; });
    add([i](auto& sheets) { ++sheets[i].front; });
    add([i](auto& sheets) { sheets[i].back = kBlankSide; });
    add([i](auto& sheets) { sheets[i].back = sheets[i].front + 1; });
    add([i](auto& sheets) { sheets[i].back.reset(); });
    add([i](auto& sheets) { sheets[i].medium += "x"; });
    add([i](auto& sheets) { ++sheets[i].sizedAs; });
    add([i](auto& sheets) {
      if (sheets[i].back) std::swap(sheets[i].front, *sheets[i].back);
    });
    add([at](auto& sheets) {  // a sheet of its own for the back
      Sheet& sheet = sheets[static_cast<std::size_t>(at)];
      if (sheet.back.value_or(kBlankSide) == kBlankSide) return;
      const Sheet another = {sheet.role, sheet.medium, *sheet.back, kBlankSide, *sheet.back};
      sheet.back = kBlankSide;
      sheets.insert(sheets.begin() + at + 1, another);
    });
    for (const SheetRole role :
         {SheetRole::FrontCover, SheetRole::Body, SheetRole::Insert, SheetRole::BackCover})
      add([i, role](auto& sheets) { sheets[i].role = role; });
  }
  return plans;
}

TEST(SheetRules, RefuseEveryPlanThatDiffersALittle) {
  int plans = 0;
  forEachWish([&plans](SheetJob job) {
    job.pages = 7;
    const int value = job.coverValue;
    if (value % 5 != 0 || value > 16) return;  // a sample
    const SheetPlan plan = planSheets(orderOf(job), job.pages);
    for (const SheetPlan& wrong : spoiled(plan)) {
      ASSERT_NE(brokenRule(job, wrong), nullptr)
          << described(job) << ": " << printed(wrong) << " instead of " << printed(plan);
      ++plans;
    }
    SheetPlan warned = plan;
    warned.warnings.push_back({SheetWarning::Kind::PageOnCover, {3}, ""});
    ASSERT_NE(brokenRule(job, warned), nullptr);
  });
  EXPECT_GT(plans, 10000);
}

}  // namespace
}  // namespace publishing
