// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace publishing {

// Sentences, in English, that send the user to the place in the dialog's own tabs where something
// is changed that the panel depends on; the tabs have other names in each toolkit.
struct DialogPlaces {
  const char* needsTwoSided;
  const char* needsOrder;
  const char* needsSinglePages;
  const char* printerIsLate;  // "%s" is the printer
};

}  // namespace publishing
