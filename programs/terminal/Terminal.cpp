// SPDX-License-Identifier: Apache-2.0
#include "programs/terminal/Terminal.h"

#include <cerrno>
#include <cstdio>
#include <iostream>

#include <fcntl.h>
#include <glib.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

template <class Json>
void sayLine(const Json& result) {
  std::cout << shownJson(result.dump(-1, ' ', false, Json::error_handler_t::replace)) << '\n';
}

}  // namespace

void keepStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0 || errno != EBADF) continue;
    // The lowest free number, which is this one; writing to it fails.
    if (open("/dev/null", O_RDONLY) != stream) std::abort();
  }
}

void say(const std::string& text) {
  std::cout << shownLines(text) << '\n';
}

void sayJson(const nlohmann::json& result) {
  sayLine(result);
}

void sayJson(const nlohmann::ordered_json& result) {
  sayLine(result);
}

void warn(const std::string& text) {
  const char* program = g_get_prgname();
  std::cerr << (program != nullptr ? program : "publishing") << ": " << shownLines(text) << '\n';
}

void finishOutput() {
  errno = 0;
  std::cout.flush();
  const bool arrived = std::cout.good() && std::ferror(stdout) == 0;
  if (std::fclose(stdout) == 0 && arrived) return;
  throw PrintError::trouble(translated(
      "The output could not be written: %s. What was asked for may be done all the same.",
      g_strerror(errno != 0 ? errno : EIO)));
}

}  // namespace publishing
