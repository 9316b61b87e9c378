// SPDX-License-Identifier: Apache-2.0
#include "programs/terminal/Terminal.h"

#include <iostream>

#include <glib.h>

namespace publishing {

void say(const std::string& text) {
  std::cout << text << '\n';
}

void warn(const std::string& text) {
  const char* program = g_get_prgname();
  std::cerr << (program != nullptr ? program : "publishing") << ": " << text << '\n';
}

}  // namespace publishing
