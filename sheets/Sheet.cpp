// SPDX-License-Identifier: Apache-2.0
#include "sheets/Sheet.h"

namespace publishing {

const char* nameOf(SheetRole role) {
  switch (role) {
    case SheetRole::FrontCover:
      return "front-cover";
    case SheetRole::Body:
      return "body";
    case SheetRole::Insert:
      return "insert";
    case SheetRole::BackCover:
      return "back-cover";
  }
  return "";
}

}  // namespace publishing
