// SPDX-License-Identifier: Apache-2.0
#include "programs/terminal/Interruption.h"

#include <csignal>

namespace publishing {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t received = 0;

void receive(int signal) {
  received = signal;
}

void handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  sigaction(signal, nullptr, &action);
  if (action.sa_handler == SIG_IGN) return;
  action.sa_handler = handler;
  action.sa_flags = 0;  // waiting calls end
  sigaction(signal, &action, nullptr);
}

}  // namespace

Interruption::Interruption() {
  received = 0;
  for (const int signal : kSignals)
    handle(signal, receive);
}

Interruption::~Interruption() {
  for (const int signal : kSignals)
    handle(signal, SIG_DFL);
}

bool Interruption::happened() {
  return received != 0;
}

void Interruption::obey() {
  if (received == 0) return;
  const int signal = received;
  handle(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace publishing
