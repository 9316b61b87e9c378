// SPDX-License-Identifier: Apache-2.0
#include "shells/HelpBook.h"

#include <array>
#include <iterator>

#include "base/GlibHandles.h"

namespace publishing {

std::string helpStartPage(const std::string& folder) {
  for (const gchar* const* language = g_get_language_names(); *language != nullptr; ++language) {
    const GlibText page(g_build_filename(folder.c_str(), "help", *language, "index.html", nullptr));
    if (g_file_test(page.get(), G_FILE_TEST_IS_REGULAR) != 0) return page.get();
  }
  return {};
}

std::string helpPartOfTab(std::int64_t tab) {
  constexpr std::array kParts = {"#covers", "#inserts"};
  return tab >= 0 && tab < std::ssize(kParts) ? kParts.at(static_cast<std::size_t>(tab)) : "";
}

}  // namespace publishing
