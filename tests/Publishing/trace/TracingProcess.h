// SPDX-License-Identifier: Apache-2.0
// Runs parts of a test in a process of their own: the trace log's name, file and indentation belong
// to a process and stay as the first line found them.
#pragma once

#include <functional>
#include <string>

#include "Publishing/trace/MyDebug.h"

namespace publishing {

// What is left to read from the descriptor.
std::string readAll(int descriptor);

// The path that the file was opened by.
std::string pathOf(const MyDebug::LogFile& file);

// A clock of its own for each process: no two of them name their logs alike.
void setClockOfThisProcess();

// What `answer` gives in a process of its own.
std::string inOwnProcess(const std::function<std::string()>& answer);

// What the log of a new process holds after `trace`; "no file" when there is none.
std::string traced(const std::function<void()>& trace);

}  // namespace publishing
