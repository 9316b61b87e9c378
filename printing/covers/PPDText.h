// SPDX-License-Identifier: Apache-2.0
// A PPD file as bytes. libcups reads a PPD and forgets how it was written; whoever adds lines to
// one and takes them out again has to leave every other byte alone, and so works on the text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace publishing {

// One statement: "*Keyword option/Text: value". A line that is none (a comment, an empty line) has
// no keyword. The views are into the text that was read; bytes are as they stand there, hexadecimal
// escapes and line ends inside a quoted value included.
struct PPDStatement {
  std::size_t begin = 0;  // of its first line
  std::size_t end = 0;    // of its last line, the line end included
  std::string_view keyword;
  std::string_view option;
  std::string_view text;
  std::string_view value;  // without the quotes, or without the blanks around it
};

// The statements in their order; together they cover the whole text. Lines end with LF, CR LF or
// CR. A quoted value goes on until its closing quote, as in libcups.
std::vector<PPDStatement> statementsOf(std::string_view ppd);

// The line end of the text's first line; LF when there is none.
std::string_view lineEndOf(std::string_view ppd);

// The text cut at blanks, tabs and line ends.
std::vector<std::string_view> wordsOf(std::string_view text);

// Compares as PPD readers do: without regard to the case of ASCII letters.
bool sameKeyword(std::string_view left, std::string_view right);

}  // namespace publishing
