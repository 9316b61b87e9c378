// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <glib.h>

namespace publishing {

// An interface description as GTK 4 reads it, made from one for GTK 3: what the panel's has in it,
// not all that there is. Signals are left out, because GTK 4 connects them by itself.
struct ConvertedInterface {
  struct Signal {
    std::string object;  // its id
    std::string name;
    std::string handler;
  };

  std::string description;
  std::vector<Signal> signals;
};

// Nothing, with the reason in the log, for what is no XML.
std::optional<ConvertedInterface> convertInterface(const char* description, gssize length);

}  // namespace publishing
