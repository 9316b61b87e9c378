// SPDX-License-Identifier: Apache-2.0
// Parsers of page lists to measure the panel's against. Each takes lists as "5,8,12-14".
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace publishing::bench {

struct PageListParser {
  std::string name;
  // The pages of a list that is known to be right, ascending.
  std::function<std::vector<int>(const std::string& list)> pages;
  // What is measured: parses a list that was made ready in the parser's own kind of string and
  // leaves the result as the parser gives it, into storage that is used again where it takes any.
  std::function<std::function<void()>(const std::string& list)> readied;
};

// The panel's own parser, with the bounds that the panel sets.
PageListParser panelParser();

// libqpdf's numeric ranges; Qt's QPageRanges when Qt 6 was there at build time.
std::vector<PageListParser> peerParsers();

}  // namespace publishing::bench
