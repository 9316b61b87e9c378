// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include <gtk/gtk.h>

#include "shells/gtk/GObjectPtr.h"

namespace publishing {

// The objects of an interface description (GtkBuilder XML as GTK 3 reads it, which all toolkits
// share), and the signals that it names, none of them connected.
struct BuiltInterface {
  struct Signal {
    GObject* object;  // of the builder's
    std::string name;
    std::string handler;
  };

  GObjectPtr<GtkBuilder> builder;  // null, with the reason in the log, for what is no description
  std::vector<Signal> signals;
};

BuiltInterface buildInterface(const char* description, gssize length);

}  // namespace publishing
