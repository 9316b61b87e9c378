// SPDX-License-Identifier: Apache-2.0
// Lines of PPDs for drivers of different kinds.
#pragma once

#include <string>

#include "tests/Publishing/ppd/PPDBuilder.h"

namespace publishing {

inline const std::string kPostScriptTypes =
    "*OpenUI *MediaType/Paper Type: PickOne\n*DefaultMediaType: Plain\n"
    "*MediaType Plain/Plain Paper: \"<</MediaType(Plain)>>setpagedevice\"\n"
    "*MediaType Coated/Coated Paper: \"<</MediaType(Coated)>>setpagedevice\"\n"
    "*MediaType Auto: \"\"\n"
    "*CloseUI: *MediaType\n";

inline const std::string kPostScriptTrays =
    "*OpenUI *InputSlot/Paper Source: PickOne\n*DefaultInputSlot: Tray1\n"
    "*InputSlot Auto/Any Tray: \"\"\n"
    "*InputSlot Tray1/Tray 1: \"<</MediaPosition 0>>setpagedevice\"\n"
    "*InputSlot Tray2/Tray 2: \"<</MediaPosition 1>>setpagedevice\"\n"
    "*CloseUI: *InputSlot\n";

inline const std::string kPostScriptMedia = kPostScriptTypes + kPostScriptTrays;

inline const std::string kFoomaticFilters =
    "*cupsFilter:\t\"application/vnd.cups-postscript 100 foomatic-rip\"\n"
    "*cupsFilter:\t\"application/vnd.cups-pdf 0 foomatic-rip\"\n";

inline const std::string kGhostscript = "gs -q -dNOMEDIAATTRS -sDEVICE=DEVICE%B%A%Z -f -";

// A driver that has Ghostscript make the pages, its trays Upper and Lower chosen by their numbers.
inline std::string ghostscriptPPD(const std::string& device, std::string command = kGhostscript,
                                  const std::string& upper = "1", const std::string& lower = "5") {
  const std::size_t place = command.find("=DEVICE");
  if (place != std::string::npos) command.replace(place + 1, 6, device);
  return test::ppdText(
      kFoomaticFilters + "*FoomaticRIPCommandLine: \"" + command +
      "\"\n*End\n"
      "*OpenUI *InputSlot/Media Source: PickOne\n*FoomaticRIPOption InputSlot: enum CmdLine A\n"
      "*DefaultInputSlot: Upper\n"
      "*InputSlot Upper/Upper Tray: \"%% FoomaticRIPOptionSetting: InputSlot=Upper\"\n"
      "*FoomaticRIPOptionSetting InputSlot=Upper: \" -dMediaPosition=" +
      upper +
      "\"\n"
      "*InputSlot Lower/Lower Tray: \"%% FoomaticRIPOptionSetting: InputSlot=Lower\"\n"
      "*FoomaticRIPOptionSetting InputSlot=Lower: \" -dMediaPosition=" +
      lower + "\"\n*CloseUI: *InputSlot\n");
}

}  // namespace publishing
