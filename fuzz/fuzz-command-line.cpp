// SPDX-License-Identifier: Apache-2.0
// Command lines of any words. The program ends with one of its statuses, with a message when it is
// not 0, and writes JSON where it was asked to. Nothing is printed: every "print" is a dry run.
//
// Each line of the input is a word; "PPD" and "DOC" stand for a sound PPD and document.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "fuzz/Require.h"
#include "programs/commands/CommandLine.h"
#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

using Words = std::vector<std::string>;

// What the stream gets while this lives.
class Captured {
 public:
  explicit Captured(std::ostream& stream) : stream_(stream), before_(stream.rdbuf(text_.rdbuf())) {}
  ~Captured() { stream_.rdbuf(before_); }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;

  [[nodiscard]] std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::ostream& stream_;
  std::streambuf* before_;
};

// A home without settings, a document, and no print server.
class Surroundings {
 public:
  Surroundings() {
    setenv("CUPS_SERVER", "127.0.0.1:1", 1);
    for (const char* name : {"HOME", "XDG_CONFIG_HOME"})
      setenv(name, folder_.path().c_str(), 1);
  }
  [[nodiscard]] const std::string& document() const { return document_; }

 private:
  TemporaryFolder folder_;
  std::string document_ = folder_.file("document.ps", "%!PS\nshowpage\n");
};

Words wordsOf(const std::string& input) {
  static const Surroundings surroundings;
  Words words = {"publishing"};
  std::istringstream lines(input);
  for (std::string word; std::getline(lines, word);) {
    word = word.substr(0, word.find('\0'));
    // The dialog is another program, which would take this one's place; "-" is the fuzzer's own
    // standard input; the system's settings are no toy.
    if (word == "dialog" || word == "-" || word.find("dry-run") != std::string::npos ||
        word.find("system") != std::string::npos) {
      continue;
    }
    if (word == "PPD") word = PRINTER_PPD;
    if (word == "DOC") word = surroundings.document();
    words.push_back(word);
    if (word == "print") words.emplace_back("--dry-run");
  }
  return words;
}

void check(const Words& words) {
  std::vector<const char*> arguments;
  std::transform(words.begin(), words.end(), std::back_inserter(arguments),
                 [](const std::string& word) { return word.c_str(); });
  arguments.push_back(nullptr);
  std::string output;
  std::string errors;
  ExitStatus status = kDone;
  {
    const Captured standardOutput(std::cout);
    const Captured standardError(std::cerr);
    status = runCommandLine(static_cast<int>(words.size()), arguments.data());
    output = standardOutput.text();
    errors = standardError.text();
  }
  require(status >= kDone && status <= kTrouble, "status " + std::to_string(status));
  require(status == kDone || !errors.empty(), "no message");
  const bool wantsJson = std::count(words.begin(), words.end(), "--json") > 0;
  if (wantsJson && output.starts_with('{')) {
    require(nlohmann::json::accept(output), "not JSON: " + output);
  }
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  publishing::check(publishing::wordsOf(std::string(reinterpret_cast<const char*>(data), size)));
  return 0;
}
