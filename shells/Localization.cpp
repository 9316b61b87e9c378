#include "shells/Localization.h"

#include <clocale>

#include <libintl.h>

namespace publishing {
namespace {

constexpr const char* kDomain = "publishing";

}  // namespace

void initLocalization() {
  std::setlocale(LC_ALL, "");
  bindtextdomain(kDomain, PUBLISHING_LOCALE_DIR);
  bind_textdomain_codeset(kDomain, "UTF-8");
}

std::string localized(const char* text) {
  // gettext answers an empty text with the catalogue's header.
  return *text == '\0' ? std::string() : dgettext(kDomain, text);
}

}  // namespace publishing
