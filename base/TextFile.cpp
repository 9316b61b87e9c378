#include "base/TextFile.h"

#include <cerrno>

#include <glib.h>
#include <glib/gstdio.h>
#include <sys/stat.h>

#include "base/Translation.h"

namespace publishing {

std::optional<std::string> textOfFile(const std::string& path, std::size_t largest,
                                      std::string& reason) {
  GStatBuf information;
  if (g_stat(path.c_str(), &information) != 0) {
    if (errno != ENOENT && errno != ENOTDIR) reason = g_strerror(errno);
    return std::nullopt;
  }
  if (!S_ISREG(information.st_mode)) {
    reason = translated("it is not a regular file");
    return std::nullopt;
  }
  if (static_cast<std::size_t>(information.st_size) > largest) {
    reason = translated("it is too large");
    return std::nullopt;
  }
  char* contents = nullptr;
  gsize length = 0;
  GError* failure = nullptr;
  if (g_file_get_contents(path.c_str(), &contents, &length, &failure) == FALSE) {
    reason = failure->message;
    g_error_free(failure);
    return std::nullopt;
  }
  std::string text(contents, length);
  g_free(contents);
  if (text.find('\0') != std::string::npos) {
    reason = translated("it contains NUL bytes");
    return std::nullopt;
  }
  return text;
}

}  // namespace publishing
