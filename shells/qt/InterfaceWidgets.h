// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QButtonGroup>
#include <QWidget>
#include <map>
#include <memory>
#include <vector>

#include "shells/qt/InterfaceDescription.h"

namespace publishing {

// The widgets of an object of an interface description and of all below it. Knows as much of the
// description's vocabulary as the panel's needs.
class InterfaceWidgets {
 public:
  // `object` must outlive the widgets. Throws std::runtime_error for an object of a type that it
  // does not know.
  explicit InterfaceWidgets(const InterfaceObject& object);

  [[nodiscard]] QWidget* root() const { return root_.get(); }

  // Each object's widget, parents after their children.
  struct Made {
    const InterfaceObject* object;
    const InterfaceObject* parent;
    QWidget* widget;
  };
  [[nodiscard]] const std::vector<Made>& made() const { return made_; }

  // The radio buttons in the widget, by their columns.
  [[nodiscard]] QButtonGroup* cellsIn(QWidget* container) const;

 private:
  QWidget* make(const InterfaceObject& object, const InterfaceObject* parent);
  QWidget* makeOne(const InterfaceObject& object);
  QWidget* makeBox(const InterfaceObject& object);
  QWidget* makeGrid(const InterfaceObject& object);
  QWidget* makeNotebook(const InterfaceObject& object);
  void relate();
  [[nodiscard]] QWidget* widgetOf(const QString& id) const;

  std::vector<Made> made_;
  std::unique_ptr<QWidget> root_;
};

}  // namespace publishing
