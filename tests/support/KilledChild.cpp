// SPDX-License-Identifier: Apache-2.0
#include "tests/support/KilledChild.h"

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <string>
#include <system_error>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace publishing {
namespace {

constexpr int kSystemCallStop = SIGTRAP | 0x80;  // with PTRACE_O_TRACESYSGOOD

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

[[noreturn]] void runTraced(const std::function<void()>& action) {
  if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(1);
  raise(SIGSTOP);
  action();
  _exit(0);
}

int waitFor(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) < 0) fail("waitpid");
  return status;
}

// Lets the child run to its next stop.
int resume(pid_t child, int signal) {
  if (ptrace(PTRACE_SYSCALL, child, nullptr, signal) != 0) fail("ptrace");
  return waitFor(child);
}

}  // namespace

bool killedBeforeSystemCall(int call, const std::function<void()>& action) {
  const pid_t child = fork();
  if (child < 0) fail("fork");
  if (child == 0) runTraced(action);
  int status = waitFor(child);
  if (!WIFSTOPPED(status)) throw std::runtime_error("the child cannot be traced");
  if (ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) {
    fail("ptrace");
  }
  // Each call stops the child twice, before and after.
  int stops = 0;
  for (status = resume(child, 0); WIFSTOPPED(status);) {
    const int signal = WSTOPSIG(status);
    if (signal == kSystemCallStop && stops++ == 2 * call) {
      kill(child, SIGKILL);
      waitFor(child);
      return true;
    }
    status = resume(child, signal == kSystemCallStop ? 0 : signal);
  }
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    throw std::runtime_error("the child died: wait status " + std::to_string(status));
  }
  return false;
}

}  // namespace publishing
