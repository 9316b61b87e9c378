// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/FilterPipeline.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/Translation.h"
#include "programs/filter/Cancellation.h"

namespace publishing {
namespace {

constexpr int kCannotRun = 127;
constexpr auto kPatience = std::chrono::seconds(2);
constexpr auto kLook = std::chrono::milliseconds(10);

constexpr const char* kServerPrograms = "CUPS_SERVERBIN";

// CUPS's folder of programs, which its filters look for as well.
std::string serverPrograms() {
  const char* programs = std::getenv(kServerPrograms);
  return programs != nullptr && *programs != '\0' ? programs : "/usr/lib/cups";
}

// In the child: becomes the filter. What is called here has to be fit for a forked process.
[[noreturn]] void become(const std::string& path, std::vector<char*>& arguments,
                         std::vector<char*>& environment, int input, int output, pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  forgetCancellation();
  // The parent can have ended before the system was told to say so.
  if (getppid() == parent && dup2(input, STDIN_FILENO) >= 0 && dup2(output, STDOUT_FILENO) >= 0) {
    execve(path.c_str(), arguments.data(), environment.data());
  }
  _exit(kCannotRun);
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts)
    pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> environmentWith(std::vector<std::pair<std::string, std::string>> changes) {
  changes.emplace_back(kServerPrograms, serverPrograms());
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    bool changed = false;
    for (const auto& [name, value] : changes)
      changed = changed || std::string_view(*variable).starts_with(name + "=");
    if (!changed) variables.emplace_back(*variable);
  }
  for (const auto& [name, value] : changes)
    variables.push_back(name + "=" + value);
  return variables;
}

// Nothing when the filter did what it should.
std::string failureOf(const std::string& name, int status) {
  if (WIFSIGNALED(status))
    return translated("The filter %s was ended by signal %d.", name, WTERMSIG(status));
  if (WEXITSTATUS(status) == kCannotRun)
    return translated("The filter %s cannot be run: install the package cups-filters.", name);
  if (WEXITSTATUS(status) != 0)
    return translated("The filter %s failed with status %d.", name, WEXITSTATUS(status));
  return {};
}

// The children of this process, among them what its children have started and left behind.
std::vector<pid_t> presentChildren() {
  std::ifstream list("/proc/thread-self/children");
  std::vector<pid_t> children;
  for (pid_t child = 0; list >> child;)
    children.push_back(child);
  return children;
}

}  // namespace

FilterPipeline::Scratch::Scratch() : path_(temporaryFolder() + "/publishingtops.XXXXXX") {
  if (mkdtemp(path_.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), temporaryFolder());
}

FilterPipeline::Scratch::~Scratch() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

FilterPipeline::FilterPipeline(const std::vector<FilterCall>& calls, int input,
                               const std::vector<std::pair<std::string, std::string>>& changes) {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  auto additions = changes;
  additions.emplace_back("TMPDIR", scratch_.path());
  std::vector<std::string> variables = environmentWith(additions);
  std::vector<char*> environment = pointersTo(variables);
  const pid_t parent = getpid();
  for (const FilterCall& call : calls) {
    const std::string path = serverPrograms() + "/filter/" + call.name;
    std::vector<std::string> words = call.arguments;
    std::vector<char*> arguments = pointersTo(words);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
      throw FilterFailure(
          translated("The filter %s cannot be run: %s", call.name, strerror(errno)));
    FileDescriptor reading(ends[0]);
    const FileDescriptor writing(ends[1]);
    const int from = children_.empty() ? input : output_.get();
    const pid_t process = fork();
    if (process == 0) become(path, arguments, environment, from, writing.get(), parent);
    if (process < 0) {
      const std::string reason = strerror(errno);
      end();
      throw FilterFailure(translated("The filter %s cannot be run: %s", call.name, reason));
    }
    children_.push_back({call.name, process});
    output_ = std::move(reading);
  }
}

FilterPipeline::~FilterPipeline() {
  try {
    end();
  } catch (...) {  // no memory for a list of processes
  }
}

void FilterPipeline::wait() {
  std::string failure;
  while (!children_.empty()) {
    int status = 0;
    const Child child = children_.front();
    if (waitpid(child.process, &status, 0) < 0) {
      throwIfCancelled();
      if (errno == EINTR) continue;
    }
    children_.erase(children_.begin());
    // A filter whose reader failed fails as well: the last one has the reason.
    if (const std::string reason = failureOf(child.name, status); !reason.empty()) failure = reason;
  }
  if (!failure.empty()) throw FilterFailure(failure);
}

// First politely, so that they can remove their files. What they leave behind is nobody's.
void FilterPipeline::end() {
  output_.reset();
  for (const Child& child : children_)
    kill(child.process, SIGTERM);
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (true) {
    const pid_t ended = waitpid(-1, nullptr, WNOHANG);
    if (ended < 0 && errno == ECHILD) break;
    if (ended > 0) {
      std::erase_if(children_, [ended](const Child& child) { return child.process == ended; });
      continue;
    }
    if (std::chrono::steady_clock::now() > deadline || children_.empty()) {
      for (const pid_t child : presentChildren())
        kill(child, SIGKILL);
    }
    std::this_thread::sleep_for(kLook);
  }
  children_.clear();
}

}  // namespace publishing
