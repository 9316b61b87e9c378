// SPDX-License-Identifier: Apache-2.0
// What the user is asked before a job is printed, and told. Modal; while a question is open the
// program may destroy the parent, which answers it with going back.
#pragma once

#include <QWidget>
#include <string>

#include "shells/HostMessages.h"

namespace publishing {

// Whether the answer is to go on, which has that label, with a mnemonic; the other one has the
// label `back`. One of them is the default.
enum class DefaultAnswer { GoOn, GoBack };
bool isAnsweredWith(QWidget* parent, const HostMessage& question, const std::string& goOn,
                    const std::string& back, DefaultAnswer byDefault);

// Says what went wrong.
void tellProblem(QWidget* parent, const std::string& problem);

}  // namespace publishing
