// SPDX-License-Identifier: Apache-2.0
#include "shells/RefusalMessage.h"

#include "base/Translation.h"

namespace publishing {

std::string refusalMessage(const std::string& typed) {
  return translated(
      "“%s” was not accepted. Pages are written with digits, “,” between them and “-” for a range: "
      "5,8,12-14",
      shown(typed));
}

}  // namespace publishing
