// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkInterface.h"

#include <utility>

#include "Publishing/PublishingFeatures.h"
#include "shells/DisplayText.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

// The box that a radio button stands in.
GtkWidget* matrixOf(GObject* radioButton) {
  return gtk_widget_get_parent(GTK_WIDGET(radioButton));
}

}  // namespace

std::unique_ptr<GtkInterface> GtkInterface::make(const char* description, gssize length) {
  BuiltInterface built = buildInterface(description, length);
  if (built.builder == nullptr) return nullptr;
  return std::unique_ptr<GtkInterface>(new GtkInterface(std::move(built)));
}

GtkInterface::GtkInterface(BuiltInterface built) : built_(std::move(built)) {
  GSList* objects = gtk_builder_get_objects(built_.builder.get());
  for (const GSList* object = objects; object != nullptr; object = object->next)
    addObject(G_OBJECT(object->data));
  g_slist_free(objects);
  for (const auto& [name, field] : textFields_) {
    GObject* room = gtk_builder_get_object(built_.builder.get(), (name + "Hint").c_str());
    if (room == nullptr) continue;
    notes_[name] = std::make_unique<GtkFieldNote>(GTK_ENTRY(field->widget()), GTK_LABEL(room));
  }
}

void GtkInterface::addObject(GObject* object) {
  if (toolkit::isRadioButton(object)) {
    GtkWidget* box = matrixOf(object);
    auto& matrix = radioMatrices_[toolkit::idOf(G_OBJECT(box))];
    if (matrix == nullptr) matrix = std::make_unique<GtkRadioMatrix>(box);
    return;
  }
  const std::string name = toolkit::idOf(object);
  if (name.empty()) return;
  if (name == outlet::pdeView) {
    view_ = std::make_unique<GtkView>(GTK_WIDGET(object));
  } else if (GTK_IS_CHECK_BUTTON(object)) {
    checkBoxes_[name] = std::make_unique<GtkCheckBox>(GTK_CHECK_BUTTON(object));
  } else if (GTK_IS_COMBO_BOX(object)) {
    popUpButtons_[name] = std::make_unique<GtkPopUpButton>(GTK_COMBO_BOX(object));
  } else if (GTK_IS_ENTRY(object)) {
    textFields_[name] = std::make_unique<GtkTextField>(GTK_ENTRY(object));
  } else if (GTK_IS_NOTEBOOK(object)) {
    tabViews_[name] = std::make_unique<GtkTabView>(GTK_NOTEBOOK(object));
  }
}

bool GtkInterface::bind(InterfaceOwner& owner) {
  InterfaceBinder binder(owner);
  if (view_ != nullptr) binder.addView(outlet::pdeView, *view_);
  addOutlets(binder);
  for (const BuiltInterface::Signal& signal : built_.signals)
    bindAction(binder, signal);
  if (binder.connect()) return true;
  for (const std::string& name : binder.unknownNames())
    g_message("The interface description names '%s', which its owner does not know", name.c_str());
  return false;
}

void GtkInterface::bindAction(InterfaceBinder& binder, const BuiltInterface::Signal& signal) {
  const std::string name = toolkit::idOf(signal.object);
  const char* event = signal.name.c_str();
  if (toolkit::isRadioButton(signal.object)) {
    radioMatrix(toolkit::idOf(G_OBJECT(matrixOf(signal.object))))
        ->setAction(GTK_CHECK_BUTTON(signal.object), event,
                    binder.action<RadioMatrix&>(signal.handler));
  } else if (GtkCheckBox* box = checkBox(name)) {
    box->setAction(event, binder.action<CheckBox&>(signal.handler));
  } else if (GtkTabView* tabs = tabView(name)) {
    tabs->setAction(event, binder.action<>(signal.handler));
  } else {
    g_message("The handler '%s' is on an object that sends no action", signal.handler.c_str());
  }
}

void GtkInterface::setTooltip(std::string_view name, const std::string& text) {
  const std::string shown = displayText(text);
  forEachControl([&](const std::string& known, auto& control) {
    if (known != name) return;
    gtk_widget_set_tooltip_text(control.widget(), shown.empty() ? nullptr : shown.c_str());
  });
}

// In GTK 4 the field outlives the window that it was in.
void GtkInterface::revealText(std::string_view name, std::size_t first, std::size_t length) {
  GtkTextField* field = textField(name);
  if (field == nullptr || toolkit::windowOf(field->widget()) == nullptr) return;
  WidgetControls::revealText(name, first, length);
}

}  // namespace publishing
