// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace publishing {

// The folder of the user's settings: $XDG_CONFIG_HOME, else ".config" in $HOME, else in the home of
// the user by the system's accounts. Variables that hold no absolute path do not count, so that a
// working folder never becomes the place of settings.
std::string userConfigFolder();

// Why other users could decide what is in the folder, or whose it is: it, or the nearest folder
// above it that exists, belongs to somebody else or can be written by everybody. For the user;
// nothing for a folder that can be trusted, or be made in a place for everybody such as /tmp.
std::optional<std::string> faultOfOwner(const std::string& folder);

}  // namespace publishing
