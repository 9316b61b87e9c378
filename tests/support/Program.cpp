// SPDX-License-Identifier: Apache-2.0
#include "tests/support/Program.h"

#include <stdexcept>

#include <glib.h>
#include <sys/wait.h>

namespace publishing {
namespace {

std::string taken(char* text) {
  std::string copy(text != nullptr ? text : "");
  g_free(text);
  return copy;
}

}  // namespace

Outcome runProgram(const std::vector<std::string>& command,
                   const std::map<std::string, std::string>& environment) {
  std::vector<char*> arguments;
  for (const std::string& word : command)
    arguments.push_back(g_strdup(word.c_str()));
  arguments.push_back(nullptr);
  char** variables = g_environ_setenv(g_get_environ(), "LC_ALL", "C.UTF-8", TRUE);
  variables = g_environ_unsetenv(variables, "LANGUAGE");
  for (const auto& [name, value] : environment) {
    variables = g_environ_setenv(variables, name.c_str(), value.c_str(), TRUE);
  }
  char* output = nullptr;
  char* errors = nullptr;
  int waitStatus = 0;
  GError* error = nullptr;
  const gboolean ran = g_spawn_sync(SOURCE_FOLDER, arguments.data(), variables, G_SPAWN_DEFAULT,
                                    nullptr, nullptr, &output, &errors, &waitStatus, &error);
  for (char* word : arguments)
    g_free(word);
  g_strfreev(variables);
  if (ran == FALSE) {
    const std::string message = error->message;
    g_error_free(error);
    throw std::runtime_error(message);
  }
  return {WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : -1, taken(output), taken(errors)};
}

}  // namespace publishing
