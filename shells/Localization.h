#pragma once

#include <string>

namespace publishing {

// Chooses the user's language from the environment, for every text below; to be called once at the
// start of a program of our own (never inside another program, whose locale is its own business).
void initLocalization();

// The text in the program's language, from the catalogue "publishing"; the text itself when there
// is no translation. UTF-8.
std::string localized(const char* text);

}  // namespace publishing
