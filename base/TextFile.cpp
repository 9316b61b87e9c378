// SPDX-License-Identifier: Apache-2.0
#include "base/TextFile.h"

#include <cerrno>

#include <glib.h>
#include <glib/gstdio.h>
#include <sys/stat.h>

#include "base/Translation.h"

namespace publishing {
namespace {

TextFile unusable(const std::string& fault) {
  return {TextFile::State::Unusable, {}, fault};
}

}  // namespace

TextFile readTextFile(const std::string& path, std::size_t largest) {
  GStatBuf information;
  if (g_stat(path.c_str(), &information) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return {};
    return unusable(g_strerror(errno));
  }
  if (!S_ISREG(information.st_mode)) return unusable(translated("it is not a regular file"));
  if (static_cast<std::size_t>(information.st_size) > largest) {
    return unusable(translated("it is too large"));
  }
  char* contents = nullptr;
  gsize length = 0;
  GError* failure = nullptr;
  if (g_file_get_contents(path.c_str(), &contents, &length, &failure) == FALSE) {
    TextFile file = unusable(failure->message);
    g_error_free(failure);
    return file;
  }
  std::string text(contents, length);
  g_free(contents);
  if (text.find('\0') != std::string::npos) return unusable(translated("it contains NUL bytes"));
  return {TextFile::State::Read, std::move(text), {}};
}

}  // namespace publishing
