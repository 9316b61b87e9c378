// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "programs/gtk-settings/GtkSettingsFile.h"

namespace publishing {

// Runs a change of a settings file with the file itself, whatever links lead to it. Throws
// PrintError (Trouble) that names the file and what to do when the file system refuses; `remedy` is
// said when rights are missing.
GtkSettingsFile::Change changeSettings(
    const std::string& path, const std::string& remedy,
    const std::function<GtkSettingsFile::Change(const std::filesystem::path& target)>& change);

// Throws PrintError (Trouble) when the folder of a user's settings file is another user's, or
// anyone's: such a file would become this user's, or the other way round.
void checkOwner(const std::string& path);

// What was done, in JSON: "none", "written", "removed".
const char* nameOf(GtkSettingsFile::Change change);

}  // namespace publishing
