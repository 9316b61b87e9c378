// SPDX-License-Identifier: Apache-2.0
// CUPS's own filters, one behind the other, as children of this process.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "programs/filter/Files.h"

namespace publishing {

// A filter that could not be run, or failed; what() is for the user.
class FilterFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A filter to be run: its name in CUPS's folder of filters, and its arguments.
struct FilterCall {
  std::string name;
  std::vector<std::string> arguments;
};

// The filters write their messages to this process's standard error. However it ends, they end with
// it: this object's end ends those that still run, and what they have started, and removes the
// files that they left; when this process is killed, the system ends them.
class FilterPipeline {
 public:
  // The first filter reads `input`, which stays the caller's. Variables are set in the filters'
  // environment. Throws FilterFailure, std::system_error.
  FilterPipeline(const std::vector<FilterCall>& calls, int input,
                 const std::vector<std::pair<std::string, std::string>>& environment = {});
  ~FilterPipeline();
  FilterPipeline(const FilterPipeline&) = delete;
  FilterPipeline& operator=(const FilterPipeline&) = delete;

  // What the last filter writes.
  [[nodiscard]] int output() const { return output_.get(); }

  // Waits until all are done. Throws FilterFailure when one of them failed, JobCancelled.
  void wait();

 private:
  struct Child {
    std::string name;
    pid_t process;
  };

  // A folder for the filters' temporary files, some of which they leave behind when they are ended.
  class Scratch {
   public:
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

   private:
    std::string path_;
  };

  void end();

  Scratch scratch_;
  std::vector<Child> children_;
  FileDescriptor output_;
};

}  // namespace publishing
