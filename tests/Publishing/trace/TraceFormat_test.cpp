// SPDX-License-Identifier: Apache-2.0
#include "Publishing/trace/TraceFormat.h"

#include <array>
#include <climits>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace publishing {
namespace {

template <typename... Arguments>
std::string formatted(std::string_view format, const Arguments&... arguments) {
  return traceFormat(format,
                     std::array<TraceArgument, sizeof...(arguments)>{traceArgument(arguments)...});
}

enum class Side : short { kFront = 1, kBack = 2 };

TEST(TraceFormat, WritesObjectsAndTexts) {
  EXPECT_EQ(formatted("%@ and %@", "one", std::string("two")), "one and two");
  EXPECT_EQ(formatted("%s", std::string_view("three")), "three");
  EXPECT_EQ(formatted("%@ %@", std::optional<std::string>(), std::optional<std::string>("x")),
            "(null) x");
  EXPECT_EQ(formatted("%s %@", static_cast<const char*>(nullptr), nullptr), "(null) (null)");
  EXPECT_EQ(formatted("%@ %@ %@", 12, -3LL, 0.1), "12 -3 0.1");
}

TEST(TraceFormat, WritesNumbersLikePrintf) {
  EXPECT_EQ(formatted("%d %i %u", -5, INT_MAX, UINT_MAX), "-5 2147483647 4294967295");
  EXPECT_EQ(formatted("%x %X %o %#x", 255, 255, 8, 255), "ff FF 10 0xff");
  EXPECT_EQ(formatted("%u", -1), "4294967295");
  EXPECT_EQ(formatted("%llu %lld", ULLONG_MAX, LLONG_MIN),
            "18446744073709551615 -9223372036854775808");
  EXPECT_EQ(formatted("%.2f %e %g", 3.14159, 1500.0, 0.5), "3.14 1.500000e+03 0.5");
  EXPECT_EQ(formatted("[%5d|%-5d|%05d|%+d|% d]", 42, 42, 42, 42, 42),
            "[   42|42   |00042|+42| 42]");
  EXPECT_EQ(formatted("[%5i|%05i|%+i]", 42, 42, 42), "[   42|00042|+42]");
  EXPECT_EQ(formatted("[%12d|%.10d|%-12s]", 42, 42, "x"), "[          42|0000000042|x           ]");
  EXPECT_EQ(formatted("[%*d|%-*d|%.*f]", 5, 42, 5, 42, 1, 2.55), "[   42|42   |2.5]");
  EXPECT_EQ(formatted("[%*d]", -5, 42), "[42   ]");
  EXPECT_EQ(formatted("%d %d %d", true, 'A', Side::kBack), "1 65 2");
  EXPECT_EQ(formatted("%c%c%C", 'A', 0xe4, 0x20ac), "Aä€");
}

// The locale is made here: a machine may have none whose decimals begin with a comma.
TEST(TraceFormat, WritesNumbersAlikeInEveryLocale) {
  const TemporaryFolder folder;
  const std::string source =
      folder.file("source",
                  "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\n"
                  "END LC_NUMERIC\n");
  std::ignore =  // it warns of what the locale lacks, and says so in its status
      std::system(("localedef -c -i " + source + " " + folder / "comma" + " 2>/dev/null").c_str());
  ASSERT_EQ(setenv("LOCPATH", folder.path().c_str(), 1), 0);
  const bool found = std::setlocale(LC_NUMERIC, "comma") != nullptr;
  const std::string traced = formatted("%.1f %e %g %@", 0.5, 1500.0, 0.25, 0.125);
  char printed[8];
  std::snprintf(printed, sizeof(printed), "%.1f", 0.5);
  std::setlocale(LC_NUMERIC, "C");
  unsetenv("LOCPATH");
  ASSERT_TRUE(found);
  EXPECT_EQ(traced, "0.5 1.500000e+03 0.25 0.125");
  EXPECT_STREQ(printed, "0,5");  // the program's own locale stands
}

TEST(TraceFormat, LetsTheArgumentDecideItsSize) {
  EXPECT_EQ(formatted("%d", LLONG_MAX), "9223372036854775807");
  EXPECT_EQ(formatted("%d", UINT_MAX), "4294967295");
  EXPECT_EQ(formatted("%hhd %ld %zu %qd %Lf", 300, 1, 2U, 3, 0.5), "300 1 2 3 0.500000");
}

TEST(TraceFormat, PadsAndCutsTextsByCharacter) {
  EXPECT_EQ(formatted("[%5@|%-5@|%.2s]", "äö", "äö", "äöü"), "[   äö|äö   |äö]");
  EXPECT_EQ(formatted("[%.0s|%3c]", "abc", 'x'), "[|  x]");
  EXPECT_EQ(formatted("[%.*s]", -1, "abc"), "[abc]");
}

TEST(TraceFormat, WritesAddresses) {
  EXPECT_EQ(formatted("%p", reinterpret_cast<const void*>(0x1f0)), "0x1f0");
  EXPECT_EQ(formatted("%p", static_cast<const void*>(nullptr)), "0x0");
}

TEST(TraceFormat, CutsWidthsThatNoLineCouldHold) {
  EXPECT_EQ(formatted("%99999999999d", 1).size(), 1000U);
  EXPECT_EQ(formatted("%*d", INT_MAX, 1).size(), 1000U);
  EXPECT_EQ(formatted("%*d", INT_MIN, 1).size(), 1000U);
  EXPECT_EQ(formatted("%.99999999999d", 1).size(), 1000U);
  EXPECT_EQ(formatted("%1000.1000f", -1.7976931348623157e308).size(), 1311U);
}

TEST(TraceFormat, WritesAMisfitAsAnObject) {
  EXPECT_EQ(formatted("%d", "text"), "text");
  EXPECT_EQ(formatted("%s", 12), "12");
  EXPECT_EQ(formatted("%f", 12), "12");
  EXPECT_EQ(formatted("%d", 1.5), "1.5");
  EXPECT_EQ(formatted("%x", nullptr), "(null)");
  EXPECT_EQ(formatted("%s", reinterpret_cast<const void*>(0x10)), "0x10");
  EXPECT_EQ(formatted("[%*d]", "wide", 7), "[7]");
  EXPECT_EQ(formatted("%c", -1), "");
  EXPECT_EQ(formatted("%c", 0xd800), "");
}

TEST(TraceFormat, KeepsAConversionWithoutArgument) {
  for (const char* text : {"%d", "%s", "%@", "100%", "%", "50% done", "%5.2lf", "%*d", "%.*s", "%p",
                           "%c", "%-", "%5", "%ll", "%."}) {
    EXPECT_EQ(formatted(text), text);
  }
  EXPECT_EQ(formatted("%d %d %@", 1), "1 %d %@");
  EXPECT_EQ(formatted("%*d then %d", 5), "%*d then 5");
}

TEST(TraceFormat, KeepsAnUnknownConversionAndItsArgument) {
  int written = 7;
  EXPECT_EQ(formatted("abc%n%d", 5), "abc%n5");
  EXPECT_EQ(formatted("%n", &written), "%n");
  EXPECT_EQ(written, 7);
  EXPECT_EQ(formatted("%y %1$@ %d", 5), "%y %1$@ 5");
}

TEST(TraceFormat, TurnsTwoPercentSignsIntoOne) {
  EXPECT_EQ(formatted("100%%"), "100%");
  EXPECT_EQ(formatted("%%d", 5), "%d");
  EXPECT_EQ(formatted("%%%"), "%%");
}

TEST(TraceFormat, IgnoresArgumentsLeftOver) {
  EXPECT_EQ(formatted("plain", 1, "two"), "plain");
}

}  // namespace
}  // namespace publishing
