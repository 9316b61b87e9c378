// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>

#include <unistd.h>

namespace publishing {

// Owns an open file; closes it.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  [[nodiscard]] int get() const { return number_; }

 private:
  int number_;
};

}  // namespace publishing
