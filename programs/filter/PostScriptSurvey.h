// SPDX-License-Identifier: Apache-2.0
// What a PostScript document is like, before it is decided which way it goes.
#pragma once

#include <string>

#include "printing/dsc/DscReader.h"

namespace publishing {

struct PostScriptSurvey {
  int pages = 0;  // with page comments
  // Whether pages may change the size of the paper, or the page device in another way. That would
  // tear sheets apart: such a page cannot lie on the back of another one.
  bool pagesChangeDevice = false;

  // Whether sheets can be made of its pages as they are.
  [[nodiscard]] bool hasPlainPages() const { return pages > 0 && !pagesChangeDevice; }
};

// Reads the document to its end.
PostScriptSurvey survey(DscReader& document);

}  // namespace publishing
