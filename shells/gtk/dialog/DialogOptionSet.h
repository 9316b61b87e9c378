// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "shells/gtk/GObjectPtr.h"

namespace publishing {

// The selected printer's options in a GTK print dialog. What stands in it under a name that begins
// with "cups-" becomes an option of the job, without the prefix, whichever program prints; what the
// PPD knows is shown in the dialog's own tabs.
//
// GTK exports the functions but does not declare them, so they are looked up by name.
class DialogOptionSet {
 public:
  // Remembers each option set that a dialog makes from now on. Hooks the type for the life of the
  // process; more than one call does no more. False when this GTK lacks one of the functions: every
  // set is empty then.
  static bool watch();

  // The set made last. A dialog has just made its own when it reports another selected printer.
  static DialogOptionSet newest();

  // No set: nothing can be stored.
  DialogOptionSet() = default;

  [[nodiscard]] explicit operator bool() const { return set_ != nullptr; }

  // The object that emits "changed" after each change; null without a set.
  [[nodiscard]] GObject* object() const { return set_.get(); }

  // The option's present value; nothing when there is no such option.
  [[nodiscard]] std::optional<std::string> value(const std::string& name) const;

  // Changes an option that is there; false when there is none.
  [[nodiscard]] bool set(const std::string& name, const std::string& value) const;

  // Stores a value, in a new option that no tab shows when there is none of that name yet.
  void store(const std::string& name, const std::string& value) const;

  void remove(const std::string& name) const;

 private:
  static bool hook();
  explicit DialogOptionSet(GObject* set) : set_(shareGObject(set)) {}

  GObjectPtr<GObject> set_;
};

}  // namespace publishing
