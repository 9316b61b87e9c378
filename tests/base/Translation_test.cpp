// SPDX-License-Identifier: Apache-2.0
#include "base/Translation.h"

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

// A catalogue as msgfmt makes it, which would refuse these translations: the texts and their
// places, in 32-bit words.
std::string catalogue(const std::map<std::string, std::string>& translations) {
  const auto count = static_cast<std::uint32_t>(translations.size());
  constexpr std::uint32_t kHeader = 28;
  std::uint32_t place = kHeader + 2 * 8 * count;
  std::string originals;
  std::string others;
  std::string texts;
  const auto word = [](std::uint32_t value) {
    return std::string(reinterpret_cast<const char*>(&value), sizeof value);
  };
  const auto add = [&](std::string& table, const std::string& text) {
    table += word(static_cast<std::uint32_t>(text.size())) + word(place);
    place += static_cast<std::uint32_t>(text.size()) + 1;
    texts += text + '\0';
  };
  for (const auto& [english, translation] : translations)
    add(originals, english);
  for (const auto& [english, translation] : translations)
    add(others, translation);
  return word(0x950412de) + word(0) + word(count) + word(kHeader) + word(kHeader + 8 * count) +
         word(0) + word(0) + originals + others + texts;
}

TEST(Translation, WithOtherDirectivesIsNotTaken) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder / "xx/LC_MESSAGES");
  std::ofstream(folder / "xx/LC_MESSAGES/publishing.mo", std::ios::binary)
      << catalogue({{"", "Content-Type: text/plain; charset=UTF-8\n"},
                    {"%s of %d", "%2$d: %1$s"},
                    {"%s: more", "%s %s: more"},
                    {"%s: number", "%d: number"},
                    {"%s: written", "%n: written"},
                    {"%s: half", "%s: half %"},
                    {"%s: mixed %d", "%1$s: mixed %d"},
                    {"%s: hundred", "%s: cent %%"},
                    {"no argument", "%s%s%s"}});
  setenv("PUBLISHING_LOCALE_DIR", folder.path().c_str(), 1);
  setenv("LANGUAGE", "xx", 1);
  std::setlocale(LC_ALL, "C.UTF-8");
  bindTranslations();
  const std::string text = "text";
  EXPECT_EQ(translated("%s of %d", text, 3), "3: text");
  EXPECT_EQ(translated("%s: hundred", text), "text: cent %");
  EXPECT_EQ(translated("%s: more", text), "text: more");
  EXPECT_EQ(translated("%s: number", text), "text: number");
  EXPECT_EQ(translated("%s: written", text), "text: written");
  EXPECT_EQ(translated("%s: half", text), "text: half");
  EXPECT_EQ(translated("%s: mixed %d", text, 3), "text: mixed 3");
  // Without arguments a text is no format.
  EXPECT_EQ(translated("no argument"), "%s%s%s");
}

}  // namespace
}  // namespace publishing
