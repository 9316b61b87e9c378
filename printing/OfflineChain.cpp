// SPDX-License-Identifier: Apache-2.0
#include "printing/OfflineChain.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <glib.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/AtomicFile.h"
#include "base/Descriptor.h"
#include "base/Translation.h"
#include "printing/OfflineSheets.h"
#include "printing/OptionEncoding.h"
#include "printing/PrintError.h"
#include "printing/Submission.h"

namespace publishing {
namespace {

constexpr const char* kProgram = "cupsfilter";
constexpr std::size_t kBufferSize = 65536;
constexpr std::chrono::milliseconds kPause{100};
constexpr int kTriesToEnd = 20;

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

// Where the PostScript goes: a file that stands there whole or not at all, or, for a target that is
// no regular file, the target itself.
class Output {
 public:
  explicit Output(const std::string& target) : target_(target) {
    struct stat information {};
    const bool direct = stat(target.c_str(), &information) == 0 && !S_ISREG(information.st_mode);
    try {
      if (direct) {
        direct_ = Descriptor(open(target.c_str(), O_WRONLY | O_CLOEXEC));
        if (!direct_.isOpen()) throw cannotWrite(target, errno);
      } else {
        constexpr mode_t kNewFile = 0666;
        file_.emplace(target, kNewFile);
      }
    } catch (const std::system_error& error) {
      throw cannotWrite(target, error.code().value());
    }
  }

  void write(std::string_view bytes) {
    try {
      if (file_) return file_->write(bytes);
    } catch (const std::system_error& error) {
      throw cannotWrite(target_, error.code().value());
    }
    while (!bytes.empty()) {
      const ssize_t written = ::write(direct_.get(), bytes.data(), bytes.size());
      if (written < 0 && errno != EINTR) throw cannotWrite(target_, errno);
      if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void finish() {
    try {
      if (file_) file_->replace();
    } catch (const std::system_error& error) {
      throw cannotWrite(target_, error.code().value());
    }
  }

 private:
  std::string target_;
  std::optional<AtomicFile> file_;
  Descriptor direct_;
};

// In the child: a group of its own, so that all filters can be ended at once, and an end of its own
// when this program is killed.
void becomeGroup(gpointer) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGTERM);
}

// The running chain: its output comes through a pipe, its messages are kept in a nameless file.
class Chain {
 public:
  explicit Chain(const std::vector<std::string>& arguments) : messages_(std::tmpfile()) {
    if (messages_ == nullptr)
      throw PrintError::trouble(
          translated("A temporary file cannot be created: %s", g_strerror(errno)));
    prctl(PR_SET_CHILD_SUBREAPER, 1);  // the filters are waited for too when their parent ends
    std::vector<const char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments)
      argv.push_back(argument.c_str());
    argv.push_back(nullptr);
    GError* failure = nullptr;
    if (g_spawn_async_with_pipes_and_fds(nullptr, argv.data(), nullptr, G_SPAWN_DO_NOT_REAP_CHILD,
                                         becomeGroup, nullptr, -1, -1, fileno(messages_), nullptr,
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
    if (process_ != 0) end();
    prctl(PR_SET_CHILD_SUBREAPER, 0);
    std::fclose(messages_);
  }
  Chain(const Chain&) = delete;
  Chain& operator=(const Chain&) = delete;

  [[nodiscard]] int output() const { return output_; }

  // Ends all filters.
  void end() {
    const pid_t group = -process_;
    kill(group, SIGTERM);
    for (int tries = 0; tries < kTriesToEnd && waitpid(process_, nullptr, WNOHANG) == 0; ++tries)
      std::this_thread::sleep_for(kPause);
    kill(group, SIGKILL);
    while (waitpid(group, nullptr, 0) > 0 || errno == EINTR)
      ;
    process_ = 0;
  }

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

// The number of bytes copied. Throws PrintError when the user does not want to go on.
std::uint64_t copyAll(int from, Output& to, const std::function<bool()>& goesOn) {
  std::array<char, kBufferSize> buffer{};
  std::uint64_t copied = 0;
  while (true) {
    pollfd waiting = {from, POLLIN, 0};
    const int ready = poll(&waiting, 1, static_cast<int>(kPause.count()));
    if (goesOn && !goesOn()) throw PrintError::refused(translated("Printing was cancelled."));
    if (ready <= 0) continue;
    const ssize_t length = read(from, buffer.data(), buffer.size());
    if (length < 0 && errno == EINTR) continue;
    if (length <= 0) return copied;
    to.write({buffer.data(), static_cast<std::size_t>(length)});
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
  arguments.push_back(document.path());
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

// The output would take the place of what it is made from.
void checkOutput(const std::string& output, const Printer& printer, const Document& document) {
  std::error_code ignored;
  const bool isPPD = std::filesystem::equivalent(output, printer.name(), ignored);
  if (!isPPD && !document.isFileAt(output)) return;
  throw PrintError::usage(
      translated("The output %s would overwrite %s. Name another file.", shown(output),
                 isPPD ? translated("the PPD") : translated("the document itself")));
}

}  // namespace

void printToFile(const Printer& printer, const JobTicket& ticket, const Document& document,
                 const std::string& title, const std::string& output,
                 const std::function<bool()>& goesOn) {
  checkJobTitle(title);
  checkNoForeignProgram(printer);
  checkOutput(output, printer, document);
  const JobTicket::Options options = printer.jobOptions(ticket);
  auto arguments = sheetFilterCommand(printer, options, document, title);
  if (arguments.empty()) arguments = argumentsFor(printer.name(), options, document, title);
  Output file(output);
  Chain chain(arguments);
  const std::uint64_t length = copyAll(chain.output(), file, goesOn);
  if (!chain.wait() || length == 0) {
    throw PrintError::trouble(translated("The print filters could not process %s:%s",
                                         shown(document.name()), chain.complaints()));
  }
  file.finish();
}

}  // namespace publishing
