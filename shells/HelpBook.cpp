// SPDX-License-Identifier: Apache-2.0
#include "shells/HelpBook.h"

#include "base/GlibHandles.h"

namespace publishing {

std::string helpStartPage(const std::string& folder) {
  for (const gchar* const* language = g_get_language_names(); *language != nullptr; ++language) {
    const GlibText page(g_build_filename(folder.c_str(), "help", *language, "index.html", nullptr));
    if (g_file_test(page.get(), G_FILE_TEST_IS_REGULAR) != 0) return page.get();
  }
  return {};
}

}  // namespace publishing
