// SPDX-License-Identifier: Apache-2.0
#include "Publishing/ppd/PPDFields.h"

#include <cstdint>
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

template <typename Entry>
std::span<const Entry> spanOf(const Entry* entries, int count) {
  if (entries == nullptr || count <= 0) return {};
  return {entries, static_cast<std::size_t>(count)};
}

}  // namespace

std::span<const ppd_choice_t> choicesOf(const ppd_option_t* option) {
  return option != nullptr ? spanOf(option->choices, option->num_choices)
                           : std::span<const ppd_choice_t>();
}

std::span<const ppd_option_t> optionsOf(const ppd_group_t* group) {
  return group != nullptr ? spanOf(group->options, group->num_options)
                          : std::span<const ppd_option_t>();
}

std::span<const ppd_group_t> subgroupsOf(const ppd_group_t* group) {
  return group != nullptr ? spanOf(group->subgroups, group->num_subgroups)
                          : std::span<const ppd_group_t>();
}

std::span<const ppd_group_t> groupsOf(const ppd_file_t* ppd) {
  return ppd != nullptr ? spanOf(ppd->groups, ppd->num_groups) : std::span<const ppd_group_t>();
}

std::span<const ppd_const_t> constraintsOf(const ppd_file_t* ppd) {
  return ppd != nullptr ? spanOf(ppd->consts, ppd->num_consts) : std::span<const ppd_const_t>();
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
