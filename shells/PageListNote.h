// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "printing/JobSheets.h"
#include "shells/FieldNote.h"
#include "shells/PageListFault.h"

namespace publishing {

// Where the user edited the text last, in bytes: behind what is new in it.
std::size_t placeOfEdit(const std::string& before, const std::string& after);

// What there is to say of a page list at once, and not only when the user presses Print: the entry
// that the panel will refuse and why; else the listed pages that get no sheet; else what may be
// listed. `edited` is where the user is typing, if they are: what begins well there is no fault.
// An empty list has a hint, although the panel refuses it: the user has not come to it yet.
FieldNote noteOnPages(const std::string& list, const PageListRules& rules, const JobSheets& sheets,
                      std::optional<std::size_t> edited);

// What may be listed. The document's last page is the highest, as far as it is known.
FieldNote hintOnPages(const PageListRules& rules, const JobSheets& sheets);

}  // namespace publishing
