// SPDX-License-Identifier: Apache-2.0
// A document's pieces, for comparison.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "printing/dsc/DscReader.h"

namespace publishing {

// Hands out a text in portions of that size at most.
DscReader::Source sourceOf(std::string_view text, std::size_t portion = 1 << 20);

// One line a piece: its section, its comment, its bytes with \n and \r written out: "Page Page
// |%%Page: 1 1\n|". What a small buffer cut is put together: bytes without a comment in one
// section, and a comment with its rest.
std::vector<std::string> piecesOf(DscReader& reader);
std::vector<std::string> piecesOf(std::string_view document);

}  // namespace publishing
