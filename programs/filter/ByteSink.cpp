// SPDX-License-Identifier: Apache-2.0
#include "programs/filter/ByteSink.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace publishing {
namespace {

constexpr std::size_t kPortion = 64 * 1024;

}  // namespace

void DescriptorSink::write(std::string_view bytes) {
  if (waiting_.size() + bytes.size() > kPortion) flush();
  if (bytes.size() >= kPortion) {
    writeAll(descriptor_, bytes);
  } else {
    waiting_ += bytes;
  }
}

void DescriptorSink::flush() {
  writeAll(descriptor_, waiting_);
  waiting_.clear();
}

void KeptBytes::write(std::string_view bytes) {
  if (!file_ && size_ + bytes.size() > limit_) {
    file_ = openNamelessFile();
    writeAll(file_.get(), memory_);
    memory_ = std::string();  // clear() would keep its memory
  }
  if (file_) {
    writeAll(file_.get(), bytes);
  } else {
    // Growing by and by, a string would need twice its size.
    if (memory_.capacity() < size_ + bytes.size() && size_ > kPortion) memory_.reserve(limit_);
    memory_ += bytes;
  }
  size_ += bytes.size();
}

void KeptBytes::copy(std::size_t first, std::size_t last, ByteSink& to) const {
  if (!file_) {
    to.write(std::string_view(memory_).substr(first, last - first));
    return;
  }
  std::vector<char> portion(kPortion);
  while (first < last) {
    const std::size_t length = read(first, portion.data(), std::min(portion.size(), last - first));
    if (length == 0) return;
    to.write({portion.data(), length});
    first += length;
  }
}

std::size_t KeptBytes::read(std::size_t first, char* buffer, std::size_t size) const {
  return file_ ? readSomeAt(file_.get(), buffer, size, first) : memory_.copy(buffer, size, first);
}

void LineSink::write(std::string_view bytes) {
  if (bytes.empty()) return;
  sink_.write(bytes);
  if (kept_) kept_->write(bytes);
  last_ = bytes.back();
}

void LineSink::writeLine(std::string_view text) {
  if (text.empty()) return;
  if (last_ != '\n' && last_ != '\r') write("\n");
  write(text);
  if (last_ != '\n') write("\n");
}

KeptBytes LineSink::giveKept() {
  KeptBytes kept = std::move(*kept_);
  kept_.reset();
  return kept;
}

}  // namespace publishing
