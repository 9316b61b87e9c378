#pragma once

#include <cstdint>

namespace publishing::test {

// How many blocks of operator new are alive in this program, to see whether a repeated call keeps
// some. The program's operator new counts them.
std::int64_t liveAllocations();

}  // namespace publishing::test
