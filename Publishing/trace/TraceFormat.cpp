// SPDX-License-Identifier: Apache-2.0
#include "Publishing/trace/TraceFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

#include <locale.h>
#include <unicode/utf8.h>

namespace publishing {
namespace {

constexpr int kWidest = 1000;

struct Conversion {
  std::string flags;
  std::optional<int> width;
  std::optional<int> precision;
  char kind = '\0';
};

// The conversion as printf reads it, for an argument with that length modifier.
std::string printfText(const Conversion& conversion, const char* length, char kind) {
  std::string text = "%" + conversion.flags;
  if (conversion.width) text += std::to_string(*conversion.width);
  if (conversion.precision) text += "." + std::to_string(*conversion.precision);
  return text + length + kind;
}

// While it lives, this thread writes numbers as C does, with "." before the decimals: logs are read
// by others than the program's user.
class PlainNumbers {
 public:
  PlainNumbers() : plain_(newlocale(LC_ALL_MASK, "C", nullptr)), before_(uselocale(plain_)) {}
  ~PlainNumbers() {
    uselocale(before_);
    if (plain_ != nullptr) freelocale(plain_);
  }
  PlainNumbers(const PlainNumbers&) = delete;
  PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
  locale_t plain_;
  locale_t before_;
};

template <typename Number>
std::string numberText(const Conversion& conversion, const char* length, char kind, Number number) {
  const PlainNumbers plain;
  std::array<char, 2 * kWidest> text{};  // the longest double has some 310 digits before its point
  std::snprintf(text.data(), text.size(), printfText(conversion, length, kind).c_str(), number);
  return text.data();
}

// `text` cut to the precision and padded to the width.
std::string fieldText(const Conversion& conversion, std::string_view text) {
  const int limit = conversion.precision.value_or(-1);
  std::size_t end = 0;
  int characters = 0;
  while (end < text.size() && characters != limit) {
    U8_FWD_1(text, end, text.size());
    ++characters;
  }
  const auto padding =
      static_cast<std::size_t>(std::max(conversion.width.value_or(0) - characters, 0));
  const bool left = conversion.flags.find('-') != std::string::npos;
  const std::string blanks(padding, ' ');
  return (left ? "" : blanks) + std::string(text.substr(0, end)) + (left ? blanks : "");
}

std::string characterText(const Conversion& conversion, std::uint32_t codePoint) {
  std::array<char, U8_MAX_LENGTH> bytes{};
  std::size_t length = 0;
  bool tooLarge = false;
  U8_APPEND(bytes.data(), length, bytes.size(), static_cast<std::int32_t>(codePoint), tooLarge);
  return fieldText(conversion, tooLarge ? "" : std::string_view(bytes.data(), length));
}

// Writes one argument; which overload is taken says what the argument is.
struct ArgumentWriter {
  const Conversion& conversion;

  template <typename Integer>
  requires std::is_integral_v<Integer> std::string operator()(Integer number) const {
    const char* length = sizeof(Integer) > sizeof(int) ? "ll" : "";
    switch (conversion.kind) {
      case 'd':
      case 'i':
        // An unsigned number too large for its signed type keeps its value.
        return numberText(conversion, length, std::is_signed_v<Integer> ? 'd' : 'u', number);
      case 'u':
      case 'o':
      case 'x':
      case 'X':
        return numberText(conversion, length, conversion.kind, number);
      case 'c':
      case 'C':
        return characterText(conversion, static_cast<std::uint32_t>(number));
      default:
        return fieldText(conversion, std::to_string(number));
    }
  }

  std::string operator()(double number) const {
    constexpr std::string_view kFloating = "eEfFgGaA";
    if (kFloating.find(conversion.kind) != std::string_view::npos) {
      return numberText(conversion, "", conversion.kind, number);
    }
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), number);
    return fieldText(conversion, std::string_view(text.data(), result.ptr));
  }

  std::string operator()(const void* address) const {
    const unsigned long long number = reinterpret_cast<std::uintptr_t>(address);
    return fieldText(conversion, "0x" + numberText({}, "ll", 'x', number));
  }

  std::string operator()(const std::optional<std::string>& text) const {
    return fieldText(conversion, text ? *text : "(null)");
  }
};

class Formatting {
 public:
  Formatting(std::string_view format, std::span<const TraceArgument> arguments)
      : format_(format), arguments_(arguments) {}

  std::string text() {
    std::string text;
    while (next_ < format_.size()) {
      const std::size_t percent = std::min(format_.find('%', next_), format_.size());
      text += format_.substr(next_, percent - next_);
      next_ = percent;
      if (next_ < format_.size()) text += conversionText();
    }
    return text;
  }

 private:
  // The text for the conversion that begins here; the conversion itself when it cannot be done.
  std::string conversionText() {
    const std::size_t begin = next_++;
    const std::size_t used = argument_;
    if (taken("%")) return "%";
    if (const auto conversion = readConversion(); conversion && argument_ < arguments_.size()) {
      return std::visit(ArgumentWriter{*conversion}, arguments_[argument_++]);
    }
    argument_ = used;
    next_ = begin + 1;
    return "%";
  }

  std::optional<Conversion> readConversion() {
    constexpr std::string_view kKinds = "@sdiuoxXcCeEfFgGaAp";
    Conversion conversion;
    while (const char flag = taken("-+ #0"))
      conversion.flags += flag;
    conversion.width = readNumber();
    if (conversion.width && *conversion.width < 0) {
      conversion.flags += '-';
      conversion.width = -*conversion.width;
    }
    if (taken(".") != '\0') {
      conversion.precision = readNumber().value_or(0);
      if (*conversion.precision < 0) conversion.precision.reset();
    }
    while (taken("hlqjztL") != '\0') {
    }
    conversion.kind = taken(kKinds);
    return conversion.kind != '\0' ? std::optional(conversion) : std::nullopt;
  }

  // A width or precision: digits, or "*" for an argument.
  std::optional<int> readNumber() {
    if (taken("*") != '\0') {
      const int* number =
          argument_ < arguments_.size() ? std::get_if<int>(&arguments_[argument_++]) : nullptr;
      return number != nullptr ? std::clamp(*number, -kWidest, kWidest) : 0;
    }
    std::optional<int> number;
    while (const char digit = taken("0123456789")) {
      number = std::min(number.value_or(0) * 10 + (digit - '0'), kWidest);
    }
    return number;
  }

  // The next character when it is one of these, passing it; else NUL.
  char taken(std::string_view characters) {
    if (next_ == format_.size() || characters.find(format_[next_]) == std::string_view::npos) {
      return '\0';
    }
    return format_[next_++];
  }

  std::string_view format_;
  std::span<const TraceArgument> arguments_;
  std::size_t next_ = 0;
  std::size_t argument_ = 0;
};

}  // namespace

std::string traceFormat(std::string_view format, std::span<const TraceArgument> arguments) {
  return Formatting(format, arguments).text();
}

}  // namespace publishing
