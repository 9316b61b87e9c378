// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace publishing {

// An object of an interface description (GtkBuilder XML), which all toolkits share, as it stands
// there. Texts are translated already.
struct InterfaceObject {
  struct Signal {
    QString name;
    QString handler;
  };
  using Texts = std::map<QString, QString>;

  // The property's value; `otherwise` when it has none.
  [[nodiscard]] QString property(const char* name, const char* otherwise = "") const;
  [[nodiscard]] int number(const char* name, int otherwise = 0) const;
  [[nodiscard]] bool isTrue(const char* name) const { return property(name) == "True"; }

  QString type;
  QString id;    // empty when it has none
  QString role;  // what it is to its parent: "tab", "accessible", mostly nothing
  Texts properties;
  Texts packing;    // its place in its parent
  Texts relations;  // ids of other objects by the kind of relation
  std::vector<Signal> handlers;
  std::vector<QString> styles;
  std::vector<InterfaceObject> children;
};

// The description's top-level objects; nothing, with the reason in the log, when it is not XML.
std::optional<std::vector<InterfaceObject>> readInterface(std::string_view description);

}  // namespace publishing
