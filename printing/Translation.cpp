#include "printing/Translation.h"

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
  std::string text(valid);
  g_free(valid);
  std::replace_if(
      text.begin(), text.end(), [](char byte) { return g_ascii_iscntrl(byte); }, ' ');
  if (bytes.size() > kLongest) text += "...";
  return text;
}

void bindTranslations() {
  bindtextdomain(kDomain, PUBLISHING_LOCALE_DIR);
  bind_textdomain_codeset(kDomain, "UTF-8");
}

const char* translatedFormat(const char* english) {
  return dgettext(kDomain, english);
}

}  // namespace publishing
