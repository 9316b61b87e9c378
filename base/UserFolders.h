// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace publishing {

// The folder of the user's settings: $XDG_CONFIG_HOME, else ".config" in $HOME, else in the home of
// the user by the system's accounts. Variables that hold no absolute path do not count, so that a
// working folder never becomes the place of settings.
std::string userConfigFolder();

// The folders of the settings that the administrator gives to all users, the most important first:
// $XDG_CONFIG_DIRS, else /etc/xdg. Paths that are not absolute do not count.
std::vector<std::string> systemConfigFolders();

// Why other users could decide what is in the folder, or whose it is: it, or the nearest folder
// above it that exists, belongs to somebody else or can be written by everybody. For the user;
// nothing for a folder that can be trusted, or be made in a place for everybody such as /tmp.
std::optional<std::string> faultOfOwner(const std::string& folder);

// The same for what the administrator gives: it may be root's, too.
std::optional<std::string> faultOfSystemOwner(const std::string& folder);

// The same for a file that is there, whatever its folder; it may be root's, too.
std::optional<std::string> faultOfFileOwner(const std::string& file);

}  // namespace publishing
