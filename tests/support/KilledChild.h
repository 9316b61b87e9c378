// SPDX-License-Identifier: Apache-2.0
// Programs that die in the middle: an action in a child process, killed before a system call.
#pragma once

#include <functional>

namespace publishing {

// Runs the action in a child process that is killed (SIGKILL) just before it makes its system call
// number `call`, counted from 0 shortly before the action begins; the call is not made. False when
// the action was done before. The child is a copy of this process with its calling thread alone.
// Throws std::runtime_error when the system does not let the child be traced, or when the child
// died of something else.
bool killedBeforeSystemCall(int call, const std::function<void()>& action);

}  // namespace publishing
