// SPDX-License-Identifier: Apache-2.0
// Linked into a test program, it gives that program a configuration folder of its own, before GLib
// looks for the user's.
#include <glib.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

class PrivateHome {
 public:
  PrivateHome() { g_setenv("XDG_CONFIG_HOME", folder_.path().c_str(), TRUE); }

 private:
  TemporaryFolder folder_;
};

const PrivateHome home;

}  // namespace
}  // namespace publishing
