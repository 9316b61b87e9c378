// SPDX-License-Identifier: Apache-2.0
// The texts of printing/ in the user's language (gettext, domain "publishing", the English text is
// the key). xgettext's keywords are `translated` and, for texts that are translated later, N_.
#pragma once

#include <string>
#include <type_traits>

#include <glib.h>

#define N_(english) english

namespace publishing {

// Makes the catalogues known: those in $PUBLISHING_LOCALE_DIR, else those that were installed.
// Leaves the locale alone: in a program of our own call setlocale before, another program's locale
// is its own business.
void bindTranslations();

// Any bytes, made fit to be shown inside a message: valid UTF-8 in one line, cut when very long.
std::string shown(const std::string& bytes);

// The text as the catalogue has it; the English text when there is none.
const char* translatedFormat(const char* english);

// The text with its printf directives filled in: %s takes a std::string or a C string, %d an int.
// Translators may change the order with %1$s.
template <class... Arguments>
std::string translated(const char* english, const Arguments&... arguments) {
  const auto plain = [](const auto& argument) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(argument)>, std::string>) {
      return argument.c_str();
    } else {
      return argument;
    }
  };
  if constexpr (sizeof...(arguments) == 0) {
    return translatedFormat(english);
  } else {
    char* filled = g_strdup_printf(translatedFormat(english), plain(arguments)...);
    std::string text(filled);
    g_free(filled);
    return text;
  }
}

}  // namespace publishing
