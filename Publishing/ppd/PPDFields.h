// SPDX-License-Identifier: Apache-2.0
// Safe reading of libcups's PPD structures. Their strings sit in arrays of a fixed size that a
// broken PPD can leave without a terminator, and the bytes need not be valid in the encoding they
// claim.
#pragma once

#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <cups/ppd.h>

namespace publishing {

// What the PPD, group or option has of these, in the PPD's order; none for a null one.
std::span<const ppd_choice_t> choicesOf(const ppd_option_t* option);
std::span<const ppd_group_t> groupsOf(const ppd_file_t* ppd);
std::span<const ppd_option_t> optionsOf(const ppd_group_t* group);
std::span<const ppd_group_t> subgroupsOf(const ppd_group_t* group);
std::span<const ppd_const_t> constraintsOf(const ppd_file_t* ppd);

enum class PPDEncoding { ASCII, UTF8 };

// The encoding of the PPD's texts: UTF-8 when the PPD's language encoding begins with these five
// bytes, ASCII for any other, for a PPD that names none and for a null PPD. (libcups 2 converts
// texts to UTF-8 while it loads and then says so here; it leaves null when the PPD has no
// LanguageEncoding line.)
PPDEncoding encodingOfPPD(const ppd_file_t* ppd);

// The bytes up to the terminator, at most the whole array.
template <std::size_t Size>
inline std::string_view boundedView(const char (&field)[Size]) {
  return {field, strnlen(field, Size)};
}

// Whether the bytes are a text in that encoding.
bool isValidIn(std::string_view bytes, PPDEncoding encoding);

// What the field holds; nothing when its bytes are not valid in the encoding.
template <std::size_t Size>
std::optional<std::string> stringFromPPD(const char (&field)[Size], PPDEncoding encoding) {
  const std::string_view bytes = boundedView(field);
  return isValidIn(bytes, encoding) ? std::optional<std::string>(bytes) : std::nullopt;
}

}  // namespace publishing
