// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Publishing/PublishingPDE.h"
#include "printing/Printer.h"
#include "shells/PanelControls.h"

namespace publishing {

// Offers the items again that the panel disabled for nothing that counts: for the medium that a
// user would replace by picking them, or for that of a feature that is off. To be called after the
// panel has enabled and disabled its items.
void offerAgain(const PublishingPDE& panel, const PanelControls& controls);

// Where the driver's choice of no medium is in the pop-up of the option; nothing when it has none.
std::optional<std::int64_t> placeOfNone(const Printer& printer, const char* mediaOption);

// Greys that choice for the features that are on: whoever wants no covers unticks their box. To be
// called after offerAgain().
void withholdNone(const PublishingPDE& panel, const Printer& printer,
                  const PanelControls& controls);

// Why the panel does not offer an item of a media pop-up, for a user: "Conflicts with Media Type:
// Transparency". Empty for an item that it offers, or would but for what offerAgain() passes over.
std::string reasonAgainstMedia(const PublishingPDE& panel, const Printer& printer,
                               const char* mediaOption, std::int64_t index);

}  // namespace publishing
