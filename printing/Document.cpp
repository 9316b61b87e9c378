// SPDX-License-Identifier: Apache-2.0
#include "printing/Document.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/Translation.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr std::size_t kPrologue = 1024;  // bytes in which readers look for the header
constexpr std::size_t kBufferSize = 65536;
constexpr const char* kStandardInput = "-";

[[noreturn]] void refuse(const std::string& name, const std::string& reason) {
  throw PrintError::trouble(translated("%s cannot be printed: %s", shown(name), reason));
}

// PDF may come after some other bytes. PostScript comes first but for the end-of-job character and
// the commands that switch a printer's language.
const char* formatOf(std::string_view head) {
  if (head.find("%PDF-") != std::string_view::npos) return "application/pdf";
  if (head.starts_with("\033%-12345X")) head.remove_prefix(std::min(head.find("%!"), head.size()));
  if (head.starts_with('\004')) head.remove_prefix(1);
  return head.starts_with("%!") ? "application/postscript" : nullptr;
}

// A file in the folder for temporary files, without a name.
Descriptor temporaryFile(const std::string& document) {
  std::string name = std::string(g_get_tmp_dir()) + "/publishing.XXXXXX";
  Descriptor file(g_mkstemp_full(name.data(), O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (!file.isOpen()) {
    refuse(document, translated("no temporary file can be made in %s: %s.", shown(g_get_tmp_dir()),
                                g_strerror(errno)));
  }
  unlink(name.c_str());
  return file;
}

void writeAll(int file, std::string_view bytes, const std::string& document) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) {
      refuse(document, translated("its temporary copy in %s cannot be written: %s.",
                                  shown(g_get_tmp_dir()), g_strerror(errno)));
    }
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

Document::Document(const std::string& path)
    : given_(path),
      name_(path == kStandardInput ? translated("(standard input)") : path),
      file_(path == kStandardInput ? fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                   : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (!file_.isOpen()) refuse(name_, g_strerror(errno));
  struct stat information {};
  if (fstat(file_.get(), &information) != 0) refuse(name_, g_strerror(errno));
  if (S_ISDIR(information.st_mode)) {
    refuse(name_, translated("it is a folder. Specify a PDF or PostScript file."));
  }
  const bool canBeRead = S_ISREG(information.st_mode) || S_ISFIFO(information.st_mode) ||
                         S_ISSOCK(information.st_mode) || given_ == kStandardInput;
  if (!canBeRead)
    refuse(name_, translated("it is neither a file nor a pipe. Specify a PDF or PostScript file."));
  device_ = information.st_dev;
  inode_ = information.st_ino;
  size_ = static_cast<std::uint64_t>(information.st_size);
  if (!S_ISREG(information.st_mode) || lseek(file_.get(), 0, SEEK_CUR) != 0) keep();
  if (size_ == 0) refuse(name_, translated("it is empty."));
  std::array<char, kPrologue> head{};
  format_ = formatOf({head.data(), read(head.data(), head.size())});
  if (format_ == nullptr) {
    refuse(name_, translated("it is neither PDF nor PostScript. Convert it to PDF first."));
  }
  lseek(file_.get(), 0, SEEK_SET);
}

void Document::keep() {
  Descriptor copy = temporaryFile(name_);
  std::array<char, kBufferSize> buffer{};
  size_ = 0;
  while (const std::size_t length = read(buffer.data(), buffer.size())) {
    writeAll(copy.get(), {buffer.data(), length}, name_);
    size_ += length;
  }
  lseek(copy.get(), 0, SEEK_SET);
  file_ = std::move(copy);
  isKept_ = true;
}

std::string Document::path() const {
  const bool hasName = given_ != kStandardInput && !isKept_;
  if (hasName) return std::filesystem::absolute(given_);
  return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(file_.get());
}

std::string Document::defaultTitle() const {
  if (given_ == kStandardInput) return "(stdin)";
  return shown(given_.substr(given_.find_last_of('/') + 1));
}

bool Document::isFileAt(const std::string& path) const {
  struct stat information {};
  return stat(path.c_str(), &information) == 0 && S_ISREG(information.st_mode) &&
         information.st_dev == device_ && information.st_ino == inode_;
}

std::size_t Document::read(char* buffer, std::size_t capacity) {
  while (true) {
    const ssize_t length = ::read(file_.get(), buffer, capacity);
    if (length >= 0) return static_cast<std::size_t>(length);
    if (errno != EINTR) refuse(name_, g_strerror(errno));
  }
}

}  // namespace publishing
