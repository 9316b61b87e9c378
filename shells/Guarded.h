// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <exception>

#include <glib.h>

namespace publishing {

// Calls a function of ours for the toolkit, through whose C code nothing may be thrown: each signal
// handler and each callback does its work in here. What is thrown ends in the log; false then.
template <class Function>
bool guarded(Function function) noexcept {
  try {
    function();
    return true;
  } catch (const std::exception& error) {
    g_message("The panel gave up: %s", error.what());
  } catch (...) {
    g_message("The panel gave up");
  }
  return false;
}

}  // namespace publishing
