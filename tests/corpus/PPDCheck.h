// SPDX-License-Identifier: Apache-2.0
// Compares the panel's model of one PPD with libcups.
#pragma once

#include <filesystem>
#include <string>

#include <cups/ppd.h>

#include "tests/corpus/Tally.h"

namespace publishing::corpus {

// Adds what it finds to the tally, under this name. The trays are asked about with the PPD's
// defaults and then with `rounds` other states of the marks: drawn at random, from a seed that is
// the name, with the other side of one of the PPD's tray constraints marked last, so that conflicts
// are common. The PPD must come as it was opened, nothing marked yet.
void checkPPD(ppd_file_t* ppd, const std::string& name, int rounds, Tally& tally);

// Counts the file, opens it and checks the PPD; one that libcups refuses is listed as such.
void checkFile(const std::filesystem::path& path, const std::string& name, int rounds,
               Tally& tally);

}  // namespace publishing::corpus
