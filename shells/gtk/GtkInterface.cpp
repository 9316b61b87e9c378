// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkInterface.h"

#include <utility>

#include "Publishing/PublishingFeatures.h"
#include "base/GlibHandles.h"
#include "shells/DisplayText.h"
#include "shells/InterfaceBinder.h"

namespace publishing {
namespace {

// The object's id; empty when the description gave it none.
std::string idOf(GObject* object) {
  if (!GTK_IS_BUILDABLE(object)) return {};
  const gchar* id = gtk_buildable_get_name(GTK_BUILDABLE(object));
  return id == nullptr || g_str_has_prefix(id, "___") ? std::string() : id;
}

// The box that a radio button stands in.
GObject* matrixOf(GObject* radioButton) {
  return G_OBJECT(gtk_widget_get_parent(GTK_WIDGET(radioButton)));
}

template <class Controls>
auto* find(Controls& controls, std::string_view name) {
  const auto found = controls.find(name);
  return found != controls.end() ? found->second.get() : nullptr;
}

}  // namespace

std::unique_ptr<GtkInterface> GtkInterface::make(const char* description, gssize length) {
  GObjectPtr<GtkBuilder> builder(gtk_builder_new());
  GError* failure = nullptr;
  if (gtk_builder_add_from_string(builder.get(), description, static_cast<gsize>(length),
                                  &failure) == 0) {
    const GlibError error(failure);
    g_warning("The interface description cannot be read: %s", error->message);
    return nullptr;
  }
  return std::unique_ptr<GtkInterface>(new GtkInterface(std::move(builder)));
}

GtkInterface::GtkInterface(GObjectPtr<GtkBuilder> builder) : builder_(std::move(builder)) {
  GSList* objects = gtk_builder_get_objects(builder_.get());
  for (const GSList* object = objects; object != nullptr; object = object->next)
    addObject(G_OBJECT(object->data));
  g_slist_free(objects);
}

void GtkInterface::addObject(GObject* object) {
  if (GTK_IS_RADIO_BUTTON(object)) {
    const std::string name = idOf(matrixOf(object));
    auto& matrix = radioMatrices_[name];
    if (matrix == nullptr) {
      matrix = std::make_unique<GtkRadioMatrix>(GTK_CONTAINER(matrixOf(object)));
    }
    return;
  }
  const std::string name = idOf(object);
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
  bindOutlets(binder);
  using Context = std::pair<GtkInterface&, InterfaceBinder&>;
  Context context(*this, binder);
  const auto bindSignal = [](GtkBuilder*, GObject* object, const gchar* signal,
                             const gchar* handler, GObject*, GConnectFlags, gpointer data) {
    auto& [self, names] = *static_cast<Context*>(data);
    self.bindAction(names, object, signal, handler);
  };
  gtk_builder_connect_signals_full(builder_.get(), +bindSignal, &context);
  if (binder.connect()) return true;
  for (const std::string& name : binder.unknownNames())
    g_message("The interface description names '%s', which its owner does not know", name.c_str());
  return false;
}

void GtkInterface::bindOutlets(InterfaceBinder& binder) {
  if (view_ != nullptr) binder.addView(outlet::pdeView, *view_);
  for (const auto& [name, tabs] : tabViews_)
    binder.addOutlet<TabView>(name, *tabs);
  for (const auto& [name, box] : checkBoxes_)
    binder.addOutlet<CheckBox>(name, *box);
  for (const auto& [name, matrix] : radioMatrices_)
    binder.addOutlet<RadioMatrix>(name, *matrix);
  for (const auto& [name, popUp] : popUpButtons_)
    binder.addOutlet<PopUpButton>(name, *popUp);
  for (const auto& [name, field] : textFields_)
    binder.addOutlet<TextField>(name, *field);
}

void GtkInterface::bindAction(InterfaceBinder& binder, GObject* object, const char* signal,
                              const char* handler) {
  const std::string name = idOf(object);
  if (GTK_IS_RADIO_BUTTON(object)) {
    radioMatrix(idOf(matrixOf(object)))
        ->setAction(GTK_RADIO_BUTTON(object), signal, binder.action<RadioMatrix&>(handler));
  } else if (GtkCheckBox* box = checkBox(name)) {
    box->setAction(signal, binder.action<CheckBox&>(handler));
  } else if (GtkTabView* tabs = tabView(name)) {
    tabs->setAction(signal, binder.action<>(handler));
  } else {
    g_message("The handler '%s' is on an object that sends no action", handler);
  }
}

template <class Function>
void GtkInterface::forEachControl(Function function) {
  for (const auto& [name, box] : checkBoxes_)
    function(name, *box);
  for (const auto& [name, matrix] : radioMatrices_)
    function(name, *matrix);
  for (const auto& [name, popUp] : popUpButtons_)
    function(name, *popUp);
  for (const auto& [name, field] : textFields_)
    function(name, *field);
}

void GtkInterface::setUserChanged(const std::function<void(const std::string& outlet)>& changed) {
  forEachControl([&](const std::string& name, auto& control) {
    control.setUserChanged([changed, name] {
      if (changed) changed(name);
    });
  });
}

void GtkInterface::setTooltip(std::string_view name, const std::string& text) {
  const std::string shown = displayText(text);
  forEachControl([&](const std::string& known, auto& control) {
    if (known != name) return;
    gtk_widget_set_tooltip_text(control.widget(), shown.empty() ? nullptr : shown.c_str());
  });
}

void GtkInterface::revealText(std::string_view name, std::size_t first, std::size_t length) {
  GtkTextField* field = textField(name);
  if (field == nullptr) return;
  for (const auto& [tabsName, tabs] : tabViews_)
    tabs->bringToFront(field->widget());
  field->select(first, length);
}

GtkCheckBox* GtkInterface::checkBox(std::string_view name) {
  return find(checkBoxes_, name);
}

GtkRadioMatrix* GtkInterface::radioMatrix(std::string_view name) {
  return find(radioMatrices_, name);
}

GtkPopUpButton* GtkInterface::popUpButton(std::string_view name) {
  return find(popUpButtons_, name);
}

GtkTextField* GtkInterface::textField(std::string_view name) {
  return find(textFields_, name);
}

GtkTabView* GtkInterface::tabView(std::string_view name) {
  return find(tabViews_, name);
}

}  // namespace publishing
