// SPDX-License-Identifier: Apache-2.0
// A document to print.
#pragma once

#include <cstdint>
#include <string>

#include <sys/types.h>

#include "base/Descriptor.h"

namespace publishing {

// An opened PDF or PostScript file. Opening refuses, before anything is sent or stored, what no
// printer could print.
class Document {
 public:
  // A file, a pipe, or standard input, which is "-". What is no regular file is read to its end
  // into a temporary file without a name. Throws PrintError (Trouble), naming the document, when it
  // cannot be read or kept, is a folder, is empty, or is neither PDF nor PostScript.
  explicit Document(const std::string& path);

  // For messages: the path as it was given, or "(standard input)".
  [[nodiscard]] const std::string& name() const { return name_; }

  // Where other processes of this user find the bytes, as long as this object lives.
  [[nodiscard]] std::string path() const;

  [[nodiscard]] std::uint64_t size() const { return size_; }  // bytes

  // MIME type: "application/pdf" or "application/postscript".
  [[nodiscard]] const char* format() const { return format_; }

  // A title for the job: the file's name without its folder and without control characters,
  // "(stdin)" for standard input.
  [[nodiscard]] std::string defaultTitle() const;

  // Whether that path leads to the file that this document is read from.
  [[nodiscard]] bool isFileAt(const std::string& path) const;

  // The next bytes, at most `capacity`; 0 at the end. Throws PrintError (Trouble).
  std::size_t read(char* buffer, std::size_t capacity);

 private:
  void keep();

  std::string given_;
  std::string name_;
  Descriptor file_;
  bool isKept_ = false;  // file_ is a copy
  dev_t device_ = 0;     // of the file that was given
  ino_t inode_ = 0;
  std::uint64_t size_ = 0;
  const char* format_ = nullptr;
};

}  // namespace publishing
