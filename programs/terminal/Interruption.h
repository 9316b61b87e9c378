// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace publishing {

// Ctrl+C, a closed terminal or a polite kill (SIGINT, SIGHUP, SIGTERM), noticed in time to clean
// up. While one lives these signals end nothing by themselves; there is one at a time. A signal
// that was ignored when the program began stays ignored.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  [[nodiscard]] static bool happened();

  // Ends the program by the signal that came, as it would have without this class, so that a shell
  // knows; does nothing when none came.
  static void obey();
};

}  // namespace publishing
