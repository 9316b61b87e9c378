// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/Failure.h"

#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

const char* nameOf(PrintError::Kind kind) {
  switch (kind) {
    case PrintError::Kind::Refused:
      return "refused";
    case PrintError::Kind::Usage:
      return "usage";
    case PrintError::Kind::Trouble:
      break;
  }
  return "trouble";
}

}  // namespace

nlohmann::json failureAsJson(const PrintError& error) {
  return {{"kind", nameOf(error.kind())}, {"message", error.what()}};
}

ExitStatus reportFailure(const PrintError& error, bool json) {
  warn(error.what());
  if (json) sayJson(nlohmann::json{{"error", failureAsJson(error)}});
  return exitStatusOf(error.kind());
}

}  // namespace publishing
