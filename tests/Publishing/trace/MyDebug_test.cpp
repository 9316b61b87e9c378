// SPDX-License-Identifier: Apache-2.0
#include "Publishing/trace/MyDebug.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include "tests/Publishing/trace/TracingProcess.h"

// The module's state belongs to a process: every test traces in a process of its own.

namespace {
struct Unscoped {};
}  // namespace

namespace publishing::MyDebug {
namespace {

struct Shape {
  virtual ~Shape() = default;
};
struct Circle : Shape {};
template <typename T>
struct Box {
  struct Lid {};
};
const Circle kCircle;

TEST(TraceLine, HasClassTabIndentationBlankAndMessage) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              _debugLog(kCircle, "%d %@ of %s", 3, "sheets", std::string("Tray2"));
            }),
            "Circle\t   3 sheets of Tray2\n");
}

TEST(TraceLine, ReadsNullBeforeTheFirstIndentation) {
  EXPECT_EQ(traced([] { _debugError(kCircle, "lost"); }), "Circle\t(null) ERROR lost\n");
  EXPECT_EQ(traced([] { _debugLog(kCircle, "plain"); }), "Circle\t(null) plain\n");
}

TEST(TraceLine, IsAppendedToTheOneFileOfTheProcess) {
  EXPECT_EQ(traced([] {
              _debugLog(kCircle, "one");
              _debugLog(kCircle, "two");
              _debugLog(kCircle, "three");
            }),
            "Circle\t(null) one\nCircle\t(null) two\nCircle\t(null) three\n");
}

TEST(TraceLine, IsInNextStepEncoding) {
  EXPECT_EQ(traced([] { _debugLog(kCircle, "Größe – ½"); }),
            "Circle\t(null) Gr\xf0\xfb"
            "e \xb1 \xd3\n");
}

TEST(TraceLine, WithAForeignCharacterIsNotWritten) {
  EXPECT_EQ(traced([] {
              _debugLog(kCircle, "before");
              _debugLog(kCircle, "price: 5 €");
              _debugLog(kCircle, "\xff");
              _debugLog(kCircle, "after");
            }),
            "Circle\t(null) before\nCircle\t(null) after\n");
}

TEST(TracedClass, IsTheObjectsOwnWithoutNamespace) {
  struct Local {};
  const Shape& shape = kCircle;
  const Shape* none = nullptr;
  const std::vector<std::pair<TracedObject, std::optional<std::string>>> cases = {
      {kCircle, "Circle"}, {shape, "Circle"},    {&kCircle, "Circle"},
      {&shape, "Circle"},  {none, std::nullopt}, {nullptr, std::nullopt},
      {Local(), "Local"},  {7, "int"},           {LogFile(-1), "LogFile"}};
  for (const auto& [object, name] : cases)
    EXPECT_EQ(object.className(), name);
  EXPECT_EQ(TracedObject(Box<int>()).className(), "Box<int>");
  EXPECT_EQ(TracedObject(Box<int>::Lid()).className(), "Lid");
  EXPECT_EQ(TracedObject(Unscoped()).className(), "Unscoped");
  EXPECT_EQ(TracedObject(Box<icu::Locale>()).className()->substr(0, 8), "Box<icu_");
}

TEST(TracedClass, OfNoObjectReadsNull) {
  EXPECT_EQ(traced([] { _debugLog(nullptr, "x"); }), "(null)\t(null) x\n");
}

TEST(TraceIndentation, EnclosesBeginAndEnd) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              decreaseIndent();
              _debugLog(kCircle, "around");
              _debugProlog(kCircle, "draw %d", 5);
              _debugError(kCircle, "no ink");
              _debugEpilog(kCircle, "draw");
              _debugLog(kCircle, "around");
            }),
            "Circle\t around\n"
            "Circle\t   BEGIN draw 5\n"
            "Circle\t   ERROR no ink\n"
            "Circle\t   END draw\n"
            "Circle\t around\n");
}

TEST(TraceIndentation, OfTwoBlanksDecreasesToNothingNotNull) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              decreaseIndent();
              _debugLog(kCircle, "x");
            }),
            "Circle\t x\n");
}

TEST(TraceIndentation, StaysUnsetWhenDecreasedFirst) {
  EXPECT_EQ(traced([] {
              decreaseIndent();
              _debugLog(kCircle, "x");
            }),
            "Circle\t(null) x\n");
}

TEST(TraceIndentation, NeverFallsBelowNone) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              decreaseIndent();
              decreaseIndent();
              decreaseIndent();
              _debugLog(kCircle, "none");
              increaseIndent();
              increaseIndent();
              _debugLog(kCircle, "two levels");
              decreaseIndent();
              _debugLog(kCircle, "one level");
            }),
            "Circle\t none\nCircle\t     two levels\nCircle\t   one level\n");
}

TEST(TraceIndentation, BelongsToTheProcessNotTheObject) {
  EXPECT_EQ(traced([] {
              _debugProlog(kCircle, "a");
              _debugLog(Box<int>(), "b");
            }),
            "Circle\t   BEGIN a\nBox<int>\t   b\n");
}

TEST(TracedText, OfTheWrappersIsFormattedTwice) {
  struct Case {
    std::string message, written;
  };
  const std::vector<Case> cases = {{"50%%", "50%"},    {"%d", "%d"},  {"%s%s%s", "%s%s%s"},
                                   {"%n", "%n"},       {"%@", "%@"},  {"100%", "100%"},
                                   {"%", "%"},         {"%%d", "%d"}, {"%%%%", "%%"},
                                   {"%999d", "%999d"}, {"%*d", "%*d"}};
  for (const auto& [message, written] : cases) {
    EXPECT_EQ(traced([&text = message] {
                _debugProlog(kCircle, "%@", text);
                _debugError(kCircle, "%s", text);
                _debugEpilog(kCircle, "%@", text);
              }),
              "Circle\t   BEGIN " + written + "\nCircle\t   ERROR " + written +
                  "\nCircle\t   END " + written + "\n");
  }
}

TEST(TracedText, OfAPlainLineIsFormattedOnce) {
  EXPECT_EQ(traced([] { _debugLog(kCircle, "%@ %%", "50%% %d"); }), "Circle\t(null) 50%% %d %\n");
}

TEST(TracedException, WritesNameReasonAndTheValuesOfItsInfo) {
  EXPECT_EQ(traced([] {
              _debugException(kCircle, {.name = "RangeError",
                                        .reason = "100% of %d",
                                        .userInfo = {{{"first", "one"}, {"second", "%s"}}}});
              _debugLog(kCircle, "after");
            }),
            "Circle\t   EXCEPTION\n"
            "Circle\t   name: RangeError\n"
            "Circle\t   reason: 100% of %d\n"
            "Circle\t   user info:\n"
            "Circle\t     one\n"
            "Circle\t     %s\n"
            "Circle\t after\n");
}

TEST(TracedException, WithoutReasonAndWithEmptyInfoHasTwoLines) {
  EXPECT_EQ(traced([] {
              increaseIndent();
              _debugException(kCircle,
                              {.name = "RangeError", .reason = std::nullopt, .userInfo = {{}}});
            }),
            "Circle\t     EXCEPTION\nCircle\t     name: RangeError\n");
}

TEST(TracedException, WithNothingHasOneLine) {
  EXPECT_EQ(traced([] { _debugException(kCircle, {}); }), "Circle\t   EXCEPTION\n");
}

}  // namespace
}  // namespace publishing::MyDebug
