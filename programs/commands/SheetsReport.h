// SPDX-License-Identifier: Apache-2.0
// The sheets of a job as the command line shows them. The number of pages must be known: the job
// has a plan.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "printing/JobSheets.h"

namespace publishing {

// Two tables for people: the sheets of one set, like sheets that follow each other in one line;
// and how many sheets of each paper all copies need.
std::string tableOf(const JobSheets& job);

// {"sheets": [{"sheet": 1, "role": "front-cover", "medium": "Leather", "front": 1, "back": 0},
// ...], "copies": 1, "totals": [{"medium": "Leather", "sheets": 2}, ...], "warnings": ["..."]}.
// Media are keywords; a blank side is 0, the back of a one-sided sheet null.
nlohmann::ordered_json asJson(const JobSheets& job);

}  // namespace publishing
