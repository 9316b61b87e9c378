// SPDX-License-Identifier: Apache-2.0
#include "printing/Document.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

#include <glib.h>
#include <sys/stat.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr std::size_t kPrologue = 1024;  // bytes in which readers look for the header

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
  throw PrintError::trouble(translated("%s cannot be printed: %s", shown(path), reason));
}

// PDF may come after some other bytes. PostScript comes first but for the end-of-job character and
// the commands that switch a printer's language.
const char* formatOf(std::string_view head) {
  if (head.find("%PDF-") != std::string_view::npos) return "application/pdf";
  if (head.starts_with("\033%-12345X")) head.remove_prefix(std::min(head.find("%!"), head.size()));
  if (head.starts_with('\004')) head.remove_prefix(1);
  return head.starts_with("%!") ? "application/postscript" : nullptr;
}

}  // namespace

Document::Document(const std::string& path) : path_(path) {
  struct stat information {};
  if (stat(path.c_str(), &information) != 0) refuse(path, g_strerror(errno));
  if (S_ISDIR(information.st_mode)) {
    refuse(path, translated("it is a folder. Specify a PDF or PostScript file."));
  }
  if (!S_ISREG(information.st_mode)) {
    refuse(path, translated("it is not a regular file. Specify a PDF or PostScript file."));
  }
  size_ = static_cast<std::uint64_t>(information.st_size);
  if (size_ == 0) refuse(path, translated("it is empty."));
  stream_.open(path, std::ios::binary);
  if (!stream_) refuse(path, g_strerror(errno));
  std::array<char, kPrologue> head{};
  format_ = formatOf({head.data(), read(head.data(), head.size())});
  if (format_ == nullptr) {
    refuse(path, translated("it is neither PDF nor PostScript. Convert it to PDF first."));
  }
  stream_.clear();
  stream_.seekg(0);
}

std::string Document::defaultTitle() const {
  return shown(path_.substr(path_.find_last_of('/') + 1));
}

std::size_t Document::read(char* buffer, std::size_t capacity) {
  errno = 0;
  stream_.read(buffer, static_cast<std::streamsize>(capacity));
  if (stream_.bad()) refuse(path_, g_strerror(errno));
  return static_cast<std::size_t>(stream_.gcount());
}

}  // namespace publishing
