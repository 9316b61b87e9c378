// SPDX-License-Identifier: Apache-2.0
#include "base/Translation.h"

#include <algorithm>

#include <libintl.h>

namespace publishing {
namespace {

constexpr const char* kDomain = "publishing";

}  // namespace

std::string shown(const std::string& bytes) {
  constexpr std::size_t kLongest = 200;
  char* valid =
      g_utf8_make_valid(bytes.data(), static_cast<gssize>(std::min(bytes.size(), kLongest)));
  std::string text;
  for (const char* place = valid; *place != '\0';) {
    const char* next = g_utf8_next_char(place);
    const bool control = g_unichar_iscntrl(g_utf8_get_char(place)) != FALSE;
    text += control ? " " : std::string(place, next);
    place = next;
  }
  g_free(valid);
  if (bytes.size() > kLongest) text += "...";
  return text;
}

void bindTranslations() {
  const gchar* folder = g_getenv("PUBLISHING_LOCALE_DIR");
  bindtextdomain(kDomain, folder != nullptr ? folder : PUBLISHING_LOCALE_DIR);
  bind_textdomain_codeset(kDomain, "UTF-8");
}

const char* translatedFormat(const char* english) {
  // The empty text is the key of the catalogue's header.
  return *english == '\0' ? english : dgettext(kDomain, english);
}

const char* translatedPluralFormat(const char* english, const char* englishPlural,
                                   std::int64_t count) {
  return dngettext(kDomain, english, englishPlural, static_cast<unsigned long>(count));
}

}  // namespace publishing
