// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Program.h"

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <glib.h>
#include <sys/wait.h>

namespace publishing {
namespace {

constexpr std::chrono::milliseconds kPause{10};

// Null-terminated, as calls of the system want it.
std::vector<char*> pointersTo(const std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (const std::string& word : words)
    pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

char** environmentWith(const std::map<std::string, std::string>& environment) {
  char** variables = g_environ_setenv(g_get_environ(), "LC_ALL", "C.UTF-8", TRUE);
  variables = g_environ_unsetenv(variables, "LANGUAGE");
  for (const auto& [name, value] : environment) {
    variables = g_environ_setenv(variables, name.c_str(), value.c_str(), TRUE);
  }
  return variables;
}

Outcome outcomeOf(int waitStatus) {
  Outcome outcome;
  if (WIFEXITED(waitStatus)) outcome.status = WEXITSTATUS(waitStatus);
  if (WIFSIGNALED(waitStatus)) outcome.signal = WTERMSIG(waitStatus);
  return outcome;
}

}  // namespace

Outcome runProgram(const std::vector<std::string>& command,
                   const std::map<std::string, std::string>& environment) {
  return RunningProgram(command, environment).finish();
}

RunningProgram::RunningProgram(const std::vector<std::string>& command,
                               const std::map<std::string, std::string>& environment) {
  std::vector<char*> arguments = pointersTo(command);
  char** variables = environmentWith(environment);
  constexpr int kMode = 0600;
  const int output = open((folder_ / "output").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, kMode);
  const int errors = open((folder_ / "errors").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, kMode);
  GError* error = nullptr;
  const gboolean runs =
      g_spawn_async_with_fds(SOURCE_FOLDER, arguments.data(), variables, G_SPAWN_DO_NOT_REAP_CHILD,
                             nullptr, nullptr, &process_, -1, output, errors, &error);
  close(output);
  close(errors);
  g_strfreev(variables);
  if (runs != FALSE) return;
  const std::string message = error->message;
  g_error_free(error);
  throw std::runtime_error(message);
}

RunningProgram::~RunningProgram() {
  if (ended_) return;
  signal(SIGKILL);
  waitpid(process_, nullptr, 0);
}

bool RunningProgram::hasEnded() {
  if (!ended_) ended_ = waitpid(process_, &waitStatus_, WNOHANG) == process_;
  return ended_;
}

bool RunningProgram::saidError(const std::string& text) {
  while (true) {
    const bool ended = hasEnded();
    if (contentsOfFile(folder_ / "errors").find(text) != std::string::npos) return true;
    if (ended) return false;
    std::this_thread::sleep_for(kPause);
  }
}

void RunningProgram::signal(int number) const {
  kill(process_, number);
}

Outcome RunningProgram::finish() {
  if (!ended_) waitpid(process_, &waitStatus_, 0);
  ended_ = true;
  Outcome outcome = outcomeOf(waitStatus_);
  outcome.output = contentsOfFile(folder_ / "output");
  outcome.errors = contentsOfFile(folder_ / "errors");
  return outcome;
}

}  // namespace publishing
