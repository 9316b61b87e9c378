#include "Publishing/PPDFields.h"

#include <cstring>

#include <unicode/ustring.h>

namespace publishing {
namespace {

bool isASCII(std::string_view bytes) {
  unsigned bits = 0;  // without an early end: keywords are short and nearly always ASCII
  for (const char byte : bytes)
    bits |= static_cast<unsigned char>(byte);
  return bits < 0x80;
}

bool isUTF8(std::string_view bytes) {
  UErrorCode status = U_ZERO_ERROR;
  std::int32_t length = 0;
  u_strFromUTF8(nullptr, 0, &length, bytes.data(), static_cast<std::int32_t>(bytes.size()),
                &status);
  return status != U_INVALID_CHAR_FOUND;
}

}  // namespace

std::span<const ppd_choice_t> choicesOf(const ppd_option_t* option) {
  if (option == nullptr || option->choices == nullptr || option->num_choices <= 0) return {};
  return {option->choices, static_cast<std::size_t>(option->num_choices)};
}

PPDEncoding encodingOfPPD(const ppd_file_t* ppd) {
  const bool named = ppd != nullptr && ppd->lang_encoding != nullptr;
  return named && std::strncmp(ppd->lang_encoding, "UTF-8", 5) == 0 ? PPDEncoding::UTF8
                                                                    : PPDEncoding::ASCII;
}

bool isValidIn(std::string_view bytes, PPDEncoding encoding) {
  return isASCII(bytes) || (encoding == PPDEncoding::UTF8 && isUTF8(bytes));
}

}  // namespace publishing
