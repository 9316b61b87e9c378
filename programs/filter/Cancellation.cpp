// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/Cancellation.h"

#include <cerrno>
#include <csignal>
#include <initializer_list>

#include <unistd.h>

namespace publishing {
namespace {

volatile std::sig_atomic_t cancelled = 0;

// A signal that comes just before a system call does not interrupt it: the alarm does, then.
extern "C" void cancel(int /*signal*/) {
  cancelled = 1;
  alarm(1);
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);  // without SA_RESTART
}

}  // namespace

void watchForCancellation() {
  cancelled = 0;
  handle(SIGTERM, cancel);
  handle(SIGINT, cancel);
  handle(SIGALRM, cancel);
  handle(SIGPIPE, SIG_IGN);
}

void forgetCancellation() {
  for (const int signal : {SIGTERM, SIGINT, SIGALRM, SIGPIPE})
    handle(signal, SIG_DFL);
}

bool isCancelled() {
  return cancelled != 0;
}

void throwIfCancelled() {
  if (isCancelled()) throw JobCancelled();
}

}  // namespace publishing
