// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtInterface.h"

#include <QLabel>
#include <QRadioButton>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "Publishing/PublishingFeatures.h"
#include "shells/qt/QtText.h"

namespace publishing {
namespace {

const InterfaceObject& viewOf(const std::vector<InterfaceObject>& objects) {
  const auto found = std::find_if(objects.begin(), objects.end(),
                                  [](const auto& object) { return object.id == outlet::pdeView; });
  if (found == objects.end()) throw std::runtime_error("it has no view");
  return *found;
}

// The name of the outlet that the object belongs to; a radio button's is its container's.
std::string outletOf(const InterfaceWidgets::Made& made) {
  const bool isCell = made.object->type == "GtkRadioButton";
  return (isCell ? made.parent->id : made.object->id).toStdString();
}

}  // namespace

std::unique_ptr<QtInterface> QtInterface::make(std::string_view description) {
  auto objects = readInterface(description);
  if (!objects) return nullptr;
  try {
    return std::unique_ptr<QtInterface>(new QtInterface(std::move(*objects)));
  } catch (const std::runtime_error& error) {
    g_warning("The interface description cannot be shown: %s", error.what());
    return nullptr;
  }
}

QtInterface::QtInterface(std::vector<InterfaceObject> objects)
    : objects_(std::move(objects)), widgets_(viewOf(objects_)), view_(widgets_.root()) {
  for (const InterfaceWidgets::Made& made : widgets_.made())
    addControl(made);
  forEachControl([this](const std::string& name, auto& control) {
    explanations_[name] = control.widget()->accessibleDescription();
  });
}

void QtInterface::addControl(const InterfaceWidgets::Made& made) {
  const std::string name = outletOf(made);
  if (name.empty()) return;
  if (made.object->type == "GtkRadioButton") {
    QWidget* container = made.widget->parentWidget();
    auto& matrix = radioMatrices_[name];
    if (matrix == nullptr) {
      matrix = std::make_unique<QtRadioMatrix>(container, widgets_.cellsIn(container));
    }
  } else if (auto* box = dynamic_cast<TwoStateBox*>(made.widget)) {
    checkBoxes_[name] = std::make_unique<QtCheckBox>(box);
  } else if (auto* comboBox = qobject_cast<QComboBox*>(made.widget)) {
    popUpButtons_[name] = std::make_unique<QtPopUpButton>(comboBox);
  } else if (auto* field = qobject_cast<QLineEdit*>(made.widget)) {
    textFields_[name] = std::make_unique<QtTextField>(field);
    auto* room = widgets_.root()->findChild<QLabel*>(field->objectName() + "Hint");
    if (room != nullptr) notes_[name] = std::make_unique<QtFieldNote>(field, room);
  } else if (auto* tabs = qobject_cast<QTabWidget*>(made.widget)) {
    tabViews_[name] = std::make_unique<QtTabView>(tabs);
  }
}

bool QtInterface::bind(InterfaceOwner& owner) {
  InterfaceBinder binder(owner);
  binder.addView(outlet::pdeView, view_);
  addOutlets(binder);
  for (const InterfaceWidgets::Made& made : widgets_.made()) {
    for (const InterfaceObject::Signal& signal : made.object->handlers)
      bindAction(binder, made, signal.handler.toStdString());
  }
  if (binder.connect()) return true;
  for (const std::string& name : binder.unknownNames())
    g_message("The interface description names '%s', which its owner does not know", name.c_str());
  return false;
}

void QtInterface::bindAction(InterfaceBinder& binder, const InterfaceWidgets::Made& made,
                             std::string_view handler) {
  const std::string name = outletOf(made);
  if (const auto* cell = qobject_cast<QRadioButton*>(made.widget)) {
    radioMatrix(name)->setAction(cell, binder.action<RadioMatrix&>(handler));
  } else if (QtCheckBox* box = checkBox(name)) {
    box->setAction(binder.action<CheckBox&>(handler));
  } else if (QtTabView* tabs = tabView(name)) {
    tabs->setAction(binder.action<>(handler));
  } else {
    g_message("The handler '%s' is on an object that sends no action",
              std::string(handler).c_str());
  }
}

void QtInterface::setTooltip(std::string_view name, const std::string& text) {
  forEachControl([&](const std::string& known, auto& control) {
    if (known != name) return;
    QWidget* widget = control.widget();
    widget->setToolTip(shownTooltip(text));
    widget->setAccessibleDescription(text.empty() ? explanations_[known] : shownText(text));
  });
}

void QtInterface::setNote(std::string_view name, const FieldNote& note) {
  WidgetControls::setNote(name, note);
  QtTextField* field = textField(name);
  if (field == nullptr) return;
  QWidget* widget = field->widget();
  QString& explanation = explanations_[std::string(name)];
  if (widget->accessibleDescription() == explanation) {
    widget->setAccessibleDescription(shownText(note.text));
  }
  explanation = shownText(note.text);
}

}  // namespace publishing
