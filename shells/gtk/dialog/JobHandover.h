// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <string>

#include <gtk/gtkunixprint.h>

namespace publishing {

// Puts options among the settings of a print job just before it is sent, whichever program sends
// it: the way for dialogs whose own options cannot be reached (see DialogOptionSet). It knows a
// job by its printer only.
class JobHandover {
 public:
  // By their names in print settings: job options with the prefix "cups-".
  using Options = std::map<std::string, std::string>;

  // Watches jobs being sent for the life of the process; more than one call does no more. False
  // when this GTK does not tell of it.
  static bool watch();

  // The next job for the printer gets these options, instead of others that wait for it.
  static void give(GtkPrinter* printer, Options options);
};

}  // namespace publishing
