// SPDX-License-Identifier: Apache-2.0
// What CUPS makes of a job option on its way to the filters.
#pragma once

#include <optional>
#include <string>

namespace publishing {

// The option's value as the filters read it. CUPS knows the types of many options: a number loses
// what is not a digit, "5-5" becomes "5". Nothing for an option that does not get there: it is
// about the sending and not about the job ("document-format", "attributes-charset"), or its value
// makes no sense to CUPS.
std::optional<std::string> valueForFilters(const std::string& name, const std::string& value);

// NAME="VALUE" as cupsParseOptions reads it: quotes and backslashes escaped, everything else as it
// stands.
std::string quotedOption(const std::string& name, const std::string& value);

}  // namespace publishing
