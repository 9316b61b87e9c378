// SPDX-License-Identifier: Apache-2.0
// A file to print.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace publishing {

// An opened PDF or PostScript file. Opening refuses, before anything is sent, what no printer could
// print.
class Document {
 public:
  // Throws PrintError (Trouble), naming the file, for one that cannot be read, is no regular file,
  // is empty, or is neither PDF nor PostScript.
  explicit Document(const std::string& path);

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::uint64_t size() const { return size_; }  // bytes

  // MIME type: "application/pdf" or "application/postscript".
  [[nodiscard]] const char* format() const { return format_; }

  // A title for the job: the file's name without its folder and without control characters.
  [[nodiscard]] std::string defaultTitle() const;

  // The next bytes, at most `capacity`; 0 at the end. Throws PrintError (Trouble).
  std::size_t read(char* buffer, std::size_t capacity);

 private:
  std::string path_;
  std::ifstream stream_;
  std::uint64_t size_ = 0;
  const char* format_ = nullptr;
};

}  // namespace publishing
