// SPDX-License-Identifier: Apache-2.0
#include "base/Translation.h"

#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include <libintl.h>

namespace publishing {
namespace {

constexpr const char* kDomain = "publishing";

// The conversions of a printf format by the number of their argument, "%2$d of %1$s" gives 1: "s",
// 2: "d". Nothing for a format that no text here has: arguments numbered in part, widths that are
// arguments, %n, a "%" alone.
std::optional<std::map<int, std::string>> directivesOf(std::string_view format) {
  std::map<int, std::string> directives;
  int unnumbered = 0;
  for (std::size_t place = format.find('%'); place != format.npos;
       place = format.find('%', place)) {
    const std::size_t end = format.find_first_not_of("0123456789$.-+ #'lz", ++place);
    if (end == format.npos) return std::nullopt;
    std::string flags(format.substr(place, end - place));
    place = end + 1;
    if (format[end] == '%' && flags.empty()) continue;
    if (std::string_view("sdiuxcfg").find(format[end]) == std::string_view::npos) {
      return std::nullopt;
    }
    const std::size_t dollar = flags.find('$');
    const int number = dollar == flags.npos ? ++unnumbered : std::atoi(flags.c_str());
    if (dollar != flags.npos) flags.erase(0, dollar + 1);
    directives.insert_or_assign(number, flags + format[end]);
  }
  const bool mixed = unnumbered > 0 && directives.size() != static_cast<std::size_t>(unnumbered);
  if (mixed) return std::nullopt;
  return directives;
}

}  // namespace

void bindTranslations() {
  const gchar* folder = g_getenv("PUBLISHING_LOCALE_DIR");
  bindtextdomain(kDomain, folder != nullptr ? folder : PUBLISHING_LOCALE_DIR);
  bind_textdomain_codeset(kDomain, "UTF-8");
}

const char* translatedFormat(const char* english) {
  // The empty text is the key of the catalogue's header.
  return *english == '\0' ? english : dgettext(kDomain, english);
}

const char* translatedDirectives(const char* english) {
  const char* translation = translatedFormat(english);
  if (translation == english || directivesOf(translation) == directivesOf(english)) {
    return translation;
  }
  return english;
}

const char* translatedPluralFormat(const char* english, const char* englishPlural,
                                   std::int64_t count) {
  const char* translation =
      dngettext(kDomain, english, englishPlural, static_cast<unsigned long>(count));
  if (translation == english || translation == englishPlural) return translation;
  const auto directives = directivesOf(translation);
  if (directives == directivesOf(english) || directives == directivesOf(englishPlural)) {
    return translation;
  }
  return count == 1 ? english : englishPlural;
}

}  // namespace publishing
