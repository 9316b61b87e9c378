// SPDX-License-Identifier: Apache-2.0
// Preset files of any content. What is accepted holds only values that a job can carry, and comes
// back unchanged when it is written; all else is refused with a reason.
#include <cstddef>
#include <cstdint>
#include <string>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "fuzz/Require.h"
#include "printing/JobTicket.h"
#include "printing/PrintError.h"
#include "printing/presets/PresetFile.h"

namespace publishing {
namespace {

void checkMedium(bool isOn, const char* option, const Preset::Medium& medium) {
  require(isOn || medium == Preset::Medium(), "a medium of a feature that is off");
  if (isOn) checkJobOption(option, medium.keyword);
  require(shown(medium.text) == medium.text, "an unclean text");
}

void check(const std::string& contents) {
  ReadPreset read;
  try {
    read = parsePreset(contents);
  } catch (const PrintError& error) {
    require(std::string(error.what()).size() > 1, "a refusal without a reason");
    return;
  }
  const Preset& preset = read.preset;
  require(!faultOfPresetName(preset.name), "an unsound name");
  checkMedium(preset.hasCover(), cCoverMediaType, preset.coverMedium);
  checkMedium(preset.hasInserts(), cPageMediaType, preset.insertMedium);
  require(
      !preset.hasInserts() || preset.insert.find_first_not_of("0123456789-,") == std::string::npos,
      "an unclean list");
  const ReadPreset again = parsePreset(textOf(preset));
  require(again.preset == preset, "written and read again, it is another one");
  require(again.warnings.empty(), "a written preset has warnings");
  require(presetOf(preset.name, valuesOf(preset)) == preset, "the panel's values lose something");
}

}  // namespace
}  // namespace publishing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  publishing::check(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
