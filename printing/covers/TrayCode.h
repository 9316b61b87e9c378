// SPDX-License-Identifier: Apache-2.0
// PostScript for trays that the driver chooses by words on Ghostscript's command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "printing/covers/FoomaticDriver.h"

namespace publishing {

// What a page says to Ghostscript to be taken from the tray: "<</MediaPosition 4>>setpagedevice".
// Nothing when the driver's words for the tray have another form than the known ones.
std::optional<std::string> trayCode(const FoomaticDriver& driver, std::string_view tray);

// The same for the tray that the printer, or the job, takes when no page names one.
std::string codeOfDefaultTray();

}  // namespace publishing
