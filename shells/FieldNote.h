// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace publishing {

// What a host says below a text field of what it holds, in as much room whatever it says.
struct FieldNote {
  enum class Kind {
    Hint,        // what the field takes
    Remark,      // something that the user should know of a text that is taken
    Unfinished,  // the user is typing; left as it is, the text will not be taken
    Fault        // the text will not be taken
  };

  Kind kind = Kind::Hint;
  std::string text;

  bool operator==(const FieldNote&) const = default;
};

}  // namespace publishing
