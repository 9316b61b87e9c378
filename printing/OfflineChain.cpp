// SPDX-License-Identifier: Apache-2.0
#include "printing/OfflineChain.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/Submission.h"

namespace publishing {
namespace {

constexpr const char* kProgram = "cupsfilter";
constexpr std::size_t kBufferSize = 65536;

PrintError cannotWrite(const std::string& output, int error) {
  return PrintError::trouble(translated("%s cannot be written: %s. Nothing was changed there.",
                                        shown(output), g_strerror(error)));
}

// Debian keeps the program where ordinary users do not look.
std::string programPath() {
  if (char* found = g_find_program_in_path(kProgram)) {
    std::string path(found);
    g_free(found);
    return path;
  }
  for (const char* folder : {"/usr/sbin/", "/usr/local/sbin/"}) {
    std::string path = std::string(folder) + kProgram;
    if (access(path.c_str(), X_OK) == 0) return path;
  }
  throw PrintError::trouble(
      translated("%s is not installed: install the package cups-daemon or cups.", kProgram));
}

// NAME="VALUE" as cupsParseOptions reads it: quotes and backslashes escaped, everything else as it
// stands.
std::string quotedOption(const std::string& name, const std::string& value) {
  std::string text = name + "=\"";
  for (const char byte : value) {
    if (byte == '"' || byte == '\\') text += '\\';
    text += byte;
  }
  return text + '"';
}

// A file of our own beside the target, so that renaming it is one step; removed unless renamed.
class OutputFile {
 public:
  explicit OutputFile(const std::string& target) : target_(target), temporary_(target + ".XXXXXX") {
    struct stat information {};
    direct_ = stat(target.c_str(), &information) == 0 && !S_ISREG(information.st_mode);
    descriptor_ = direct_ ? open(target.c_str(), O_WRONLY | O_CLOEXEC)
                          : g_mkstemp_full(temporary_.data(), O_WRONLY | O_CLOEXEC, 0666);
    if (descriptor_ < 0) throw cannotWrite(target, errno);
  }
  ~OutputFile() {
    if (descriptor_ >= 0) close(descriptor_);
    if (!direct_ && !temporary_.empty()) unlink(temporary_.c_str());
  }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  [[nodiscard]] int descriptor() const { return descriptor_; }

  void finish() {
    if (!direct_ && fsync(descriptor_) != 0) throw cannotWrite(target_, errno);
    if (close(std::exchange(descriptor_, -1)) != 0) throw cannotWrite(target_, errno);
    if (direct_) return;
    if (rename(temporary_.c_str(), target_.c_str()) != 0) throw cannotWrite(target_, errno);
    temporary_.clear();
  }

 private:
  std::string target_;
  std::string temporary_;
  bool direct_ = false;
  int descriptor_ = -1;
};

// The running chain: its output comes through a pipe, its messages are kept in a nameless file.
class Chain {
 public:
  explicit Chain(const std::vector<std::string>& arguments) : messages_(std::tmpfile()) {
    if (messages_ == nullptr)
      throw PrintError::trouble(
          translated("A temporary file cannot be created: %s", g_strerror(errno)));
    std::vector<const char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments)
      argv.push_back(argument.c_str());
    argv.push_back(nullptr);
    GError* failure = nullptr;
    if (g_spawn_async_with_pipes_and_fds(nullptr, argv.data(), nullptr, G_SPAWN_DO_NOT_REAP_CHILD,
                                         nullptr, nullptr, -1, -1, fileno(messages_), nullptr,
                                         nullptr, 0, &process_, nullptr, &output_, nullptr,
                                         &failure) == FALSE) {
      const std::string reason = failure->message;
      g_error_free(failure);
      std::fclose(messages_);
      throw PrintError::trouble(translated("The print filters cannot be run: %s", reason));
    }
  }
  ~Chain() {
    if (output_ >= 0) close(output_);
    if (process_ != 0) {
      kill(process_, SIGTERM);
      wait();
    }
    std::fclose(messages_);
  }
  Chain(const Chain&) = delete;
  Chain& operator=(const Chain&) = delete;

  [[nodiscard]] int output() const { return output_; }

  // Whether the chain ended well.
  bool wait() {
    int status = 0;
    while (waitpid(std::exchange(process_, 0), &status, 0) < 0 && errno == EINTR)
      ;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  // What the filters complained of; their last words when nothing was marked as an error.
  std::string complaints() {
    std::rewind(messages_);
    std::string errors;
    std::string last;
    std::array<char, 1024> line{};
    while (std::fgets(line.data(), static_cast<int>(line.size()), messages_) != nullptr) {
      last = shown(line.data());
      if (last.starts_with("ERROR:") || last.starts_with("CRIT:")) errors += "\n  " + last;
    }
    return errors.empty() ? "\n  " + last : errors;
  }

 private:
  std::FILE* messages_;
  GPid process_ = 0;
  int output_ = -1;
};

void writeAll(int descriptor, const char* bytes, std::size_t length, const std::string& output) {
  while (length > 0) {
    const ssize_t written = write(descriptor, bytes, length);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw cannotWrite(output, errno);
    bytes += written;
    length -= static_cast<std::size_t>(written);
  }
}

// The number of bytes copied.
std::uint64_t copyAll(int from, int to, const std::string& output) {
  std::array<char, kBufferSize> buffer{};
  std::uint64_t copied = 0;
  while (true) {
    const ssize_t length = read(from, buffer.data(), buffer.size());
    if (length < 0 && errno == EINTR) continue;
    if (length <= 0) return copied;
    writeAll(to, buffer.data(), static_cast<std::size_t>(length), output);
    copied += static_cast<std::uint64_t>(length);
  }
}

std::vector<std::string> argumentsFor(const std::string& ppd, JobTicket::Options options,
                                      const Document& document, const std::string& title) {
  const auto absolute = [](const std::string& path) {
    return std::filesystem::absolute(path).string();
  };
  std::vector<std::string> arguments = {
      programPath(),     "-e", "-p",          absolute(ppd), "-i",
      document.format(), "-m", "printer/foo", "-t",          title};
  if (const auto copies = options.extract("copies")) {
    arguments.insert(arguments.end(), {"-n", copies.mapped()});
  }
  for (const auto& [name, value] : options)
    arguments.insert(arguments.end(), {"-o", quotedOption(name, value)});
  arguments.push_back(absolute(document.path()));
  return arguments;
}

// The filters run with the user's rights, not with those of a print server.
void checkNoForeignProgram(const Printer& printer) {
  const auto program = printer.ppd()->foreignProgram();
  if (!program) return;
  throw PrintError::refused(
      translated("The PPD %s runs its own program (%s), which is not allowed without a print "
                 "server. Use the PPD of a PostScript printer.",
                 shown(printer.name()), shown(*program)));
}

}  // namespace

void printToFile(const Printer& printer, const JobTicket& ticket, const Document& document,
                 const std::string& title, const std::string& output) {
  checkJobTitle(title);
  checkNoForeignProgram(printer);
  const auto arguments = argumentsFor(printer.name(), printer.jobOptions(ticket), document, title);
  OutputFile file(output);
  Chain chain(arguments);
  const std::uint64_t length = copyAll(chain.output(), file.descriptor(), output);
  if (!chain.wait() || length == 0) {
    throw PrintError::trouble(translated("The print filters could not process %s:%s",
                                         shown(document.path()), chain.complaints()));
  }
  file.finish();
}

}  // namespace publishing
