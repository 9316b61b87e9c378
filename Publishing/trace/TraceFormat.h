// SPDX-License-Identifier: Apache-2.0
// Formatting with "%@" and printf conversions that cannot go wrong: each argument knows its type,
// so a text with the wrong conversions, or too many of them, still gives a defined result.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace publishing {

// One argument: a number, an address, or a text (UTF-8; an absent one reads "(null)").
using TraceArgument = std::variant<int, unsigned, long long, unsigned long long, double,
                                   const void*, std::optional<std::string>>;

template <typename T>
TraceArgument traceArgument(const T& value) {
  if constexpr (std::is_same_v<T, std::nullptr_t>) {
    return std::optional<std::string>();
  } else if constexpr (std::is_convertible_v<const T&, const char*>) {
    const char* text = value;
    return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
  } else if constexpr (std::is_convertible_v<const T&, std::string_view>) {
    return std::optional<std::string>(std::string_view(value));
  } else if constexpr (std::is_convertible_v<const T&, std::optional<std::string>>) {
    return std::optional<std::string>(value);
  } else if constexpr (std::is_enum_v<T>) {
    return traceArgument(static_cast<std::underlying_type_t<T>>(value));
  } else if constexpr (std::is_floating_point_v<T>) {
    return static_cast<double>(value);
  } else if constexpr (std::is_integral_v<T>) {
    using Narrow =
        std::conditional_t<std::is_signed_v<T> || sizeof(T) < sizeof(int), int, unsigned>;
    using Wide = std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>;
    return static_cast<std::conditional_t<sizeof(T) <= sizeof(int), Narrow, Wide>>(value);
  } else {
    static_assert(std::is_pointer_v<T>, "trace numbers, texts and addresses");
    return static_cast<const void*>(value);
  }
}

// `format` with its conversions replaced by the arguments in turn:
//
//   %@ %s                    the argument's text; a number in decimal, an absent text as "(null)"
//   %d %i %u %o %x %X %c %C  an integer; its own type decides its size, length modifiers are only
//                            skipped; %c and %C take a code point
//   %e %f %g %a, %E %F %G %A a floating-point number
//   %p                       an address
//   %%                       a percent sign
//
// Flags, width and precision work as in printf, "*" included; both are cut to 1000. Those of a text
// count characters.
// An argument that the conversion does not fit is written as by %@. A conversion for which no
// argument is left, an unknown one and a lone "%" stay in the text as they are. "%n" is unknown:
// nothing is ever written through an argument. Arguments left over are ignored.
std::string traceFormat(std::string_view format, std::span<const TraceArgument> arguments);

}  // namespace publishing
