// SPDX-License-Identifier: Apache-2.0
// The texts of printing/ in the user's language (gettext, domain "publishing", the English text is
// the key). xgettext's keywords are `translated`, `translatedPlural` and, for
// texts that are translated later, N_.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include <glib.h>

#include "base/ShownText.h"

#define N_(english) english

namespace publishing {

// Makes the catalogues known: those in $PUBLISHING_LOCALE_DIR, else those that were installed.
// Leaves the locale alone: in a program of our own call setlocale before, another program's locale
// is its own business.
void bindTranslations();

// The text as the catalogue has it; the English text when there is none.
const char* translatedFormat(const char* english);

// The same for a printf format, whose arguments are those of the English one: a translation with
// other directives would read them as what they are not, and is not taken.
const char* translatedDirectives(const char* english);

// The form of the format that the language has for `count`: the singular, the plural, or one of
// more plurals. It has the directives of the English singular or plural. Without a catalogue the
// English one.
const char* translatedPluralFormat(const char* english, const char* englishPlural,
                                   std::int64_t count);

// A printf format with its directives filled in: %s takes a std::string or a C string, %d an int.
template <class... Arguments>
std::string filledIn(const char* format, const Arguments&... arguments) {
  const auto plain = [](const auto& argument) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(argument)>, std::string>) {
      return argument.c_str();
    } else {
      return argument;
    }
  };
  char* filled = g_strdup_printf(format, plain(arguments)...);
  std::string text(filled);
  g_free(filled);
  return text;
}

// The text with its directives filled in. Translators may change the order with %1$s.
template <class... Arguments>
std::string translated(const char* english, const Arguments&... arguments) {
  if constexpr (sizeof...(arguments) == 0) {
    return translatedFormat(english);
  } else {
    return filledIn(translatedDirectives(english), arguments...);
  }
}

// The same of a text that has a plural. The count itself is an argument like others, if the text
// shows it.
template <class... Arguments>
std::string translatedPlural(const char* english, const char* englishPlural, std::int64_t count,
                             const Arguments&... arguments) {
  return filledIn(translatedPluralFormat(english, englishPlural, count), arguments...);
}

}  // namespace publishing
