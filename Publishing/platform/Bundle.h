// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "Publishing/platform/AlertPanel.h"
#include "Publishing/platform/InterfaceOwner.h"

namespace publishing {

// The plug-in's bundle: its texts, its interface description, its help book, and the alerts of the
// toolkit that shows them. Implemented once for each shell.
class Bundle {
 public:
  virtual ~Bundle() = default;

  // The text in the user's language; the key itself, which is the English text, when there is none.
  [[nodiscard]] virtual std::string localizedString(const std::string& key) const = 0;

  // The folder of the bundle's resources.
  [[nodiscard]] virtual std::string path() const = 0;

  // Makes the views and controls of the description `name`, connects the owner's outlets and
  // actions by their names, then calls the owner's awakeFromNib. False, with nothing connected,
  // when there is no such description or one of its names is unknown to the owner. The controls
  // live as long as the bundle.
  virtual bool loadInterface(const std::string& name, InterfaceOwner& owner) = 0;

  // Makes the help book below path() known to the help viewer; false when that failed.
  virtual bool registerHelpBook() = 0;

  // Opens a registered help book at its start page. The status is the help viewer's: 0 when the
  // page was opened, another value when not.
  virtual std::int32_t gotoHelpPage(const std::string& bookName) = 0;

  // Alerts for the window that the panel is shown in; valid as long as the bundle.
  [[nodiscard]] virtual AlertPanel& alertPanel() = 0;
};

}  // namespace publishing
