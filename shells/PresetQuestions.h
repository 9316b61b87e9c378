// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace publishing {

// What the user is asked and told about presets, each in a modal window of the toolkit's. While one
// is open the program may destroy the print dialog, which answers it with going back.
class PresetQuestions {
 public:
  virtual ~PresetQuestions() = default;

  // A sound name (faultOfPresetName) for a preset; nothing when the user goes back.
  virtual std::optional<std::string> askName() = 0;

  // Whether the preset of that name is to be replaced, or deleted. Going back is the default.
  virtual bool confirmsReplacing(const std::string& name) = 0;
  virtual bool confirmsDeleting(const std::string& name) = 0;

  // Says what went wrong.
  virtual void tell(const std::string& problem) = 0;
};

}  // namespace publishing
