// SPDX-License-Identifier: Apache-2.0
// Where bytes go to.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "programs/filter/Files.h"

namespace publishing {

class ByteSink {
 public:
  virtual ~ByteSink() = default;
  // Throws std::system_error when they cannot be written.
  virtual void write(std::string_view bytes) = 0;
};

// Writes to a file descriptor of somebody else, in large portions. What was not flushed is lost.
class DescriptorSink : public ByteSink {
 public:
  explicit DescriptorSink(int descriptor) : descriptor_(descriptor) {}
  void write(std::string_view bytes) override;
  void flush();

 private:
  int descriptor_;
  std::string waiting_;
};

// Keeps bytes until they are wanted: up to a limit in memory, beyond it in a nameless file.
class KeptBytes : public ByteSink {
 public:
  explicit KeptBytes(std::size_t limit) : limit_(limit) {}
  void write(std::string_view bytes) override;

  [[nodiscard]] std::size_t size() const { return size_; }

  // The bytes from `first` up to `last`, exclusive, which may not be beyond size().
  void copy(std::size_t first, std::size_t last, ByteSink& to) const;

  // Some of the bytes from `first` on; 0 at their end.
  std::size_t read(std::size_t first, char* buffer, std::size_t size) const;

 private:
  std::size_t limit_;
  std::size_t size_ = 0;
  std::string memory_;
  FileDescriptor file_;
};

// Passes bytes on, can keep them as well, and puts lines of our own between them.
class LineSink : public ByteSink {
 public:
  // The other sink has to outlive this one.
  explicit LineSink(ByteSink& sink) : sink_(sink) {}
  void write(std::string_view bytes) override;

  // On a line of its own, with a line end; nothing when the text is empty.
  void writeLine(std::string_view text);

  // What is written from now on is kept as well; nothing more once it is given back.
  void keep(std::size_t limit) { kept_.emplace(limit); }
  KeptBytes giveKept();

 private:
  ByteSink& sink_;
  std::optional<KeptBytes> kept_;
  char last_ = '\n';
};

}  // namespace publishing
