// SPDX-License-Identifier: Apache-2.0
#include "Publishing/Utilities.h"

namespace publishing {

bool RunningOn105OrLater() {
  return true;
}

}  // namespace publishing
