// SPDX-License-Identifier: Apache-2.0
#include "tests/support/GtkStage.h"

#include <iterator>
#include <utility>
#include <vector>

#include "shells/gtk/Toolkit.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/WidgetStage.h"

namespace publishing {
std::unique_ptr<PanelStage> makeWidgetStage(AlertSink alerts) {
  return std::make_unique<GtkStage>(std::move(alerts));
}

GtkStage::GtkStage(AlertSink alerts)
    : alerts_(std::move(alerts)),
      bundle_(std::make_shared<GtkBundle>("")),
      window_(gestures::newWindow()) {}

GtkStage::~GtkStage() {
  toolkit::destroyWindow(window());
}

GtkInterface* GtkStage::shown() {
  GtkInterface* interface = bundle_->interface();
  if (interface == nullptr || interface == inWindow_) return interface;
  gestures::setContent(window(), interface->view()->widget());
  gtk_widget_show(window_.get());
  settle();
  inWindow_ = interface;
  return interface;
}

void GtkStage::settle() {
  gestures::settle();
}

void GtkStage::click(const std::string& checkBox) {
  if (auto* interface = shown()) gestures::click(interface->checkBox(checkBox)->widget());
}

void GtkStage::clickRadioCell(std::int64_t column) {
  auto* interface = shown();
  if (interface == nullptr || column < 0) return;
  GtkWidget* matrix = interface->radioMatrix("CmFrontandBackMatrix")->widget();
  const std::vector<GtkWidget*> cells = toolkit::childrenOf(matrix);
  if (column < std::ssize(cells)) gestures::click(cells[static_cast<std::size_t>(column)]);
}

void GtkStage::choose(const std::string& popUp, std::int64_t index) {
  auto* interface = shown();
  if (interface == nullptr || index < 0) return;
  gestures::pickItem(GTK_COMBO_BOX(interface->popUpButton(popUp)->widget()),
                     static_cast<int>(index));
  settle();
}

void GtkStage::type(const std::string& text) {
  auto* interface = shown();
  if (interface == nullptr) return;
  auto* entry = GTK_ENTRY(interface->textField("PiPageNum")->widget());
  if (gtk_widget_is_sensitive(GTK_WIDGET(entry)) == 0) return;
  gtk_editable_select_region(GTK_EDITABLE(entry), 0, -1);
  gestures::backspace(entry);
  settle();
  for (const char* place = text.c_str(); *place != '\0'; place = g_utf8_next_char(place)) {
    gestures::insert(entry, {place, static_cast<const char*>(g_utf8_next_char(place))});
    settle();
  }
}

void GtkStage::selectTab(std::int64_t index) {
  auto* interface = shown();
  if (interface == nullptr || index < 0) return;
  GtkNotebook* notebook = interface->tabView("tabView")->notebook();
  if (index < gtk_notebook_get_n_pages(notebook) &&
      index != gtk_notebook_get_current_page(notebook)) {
    gtk_notebook_set_current_page(notebook, static_cast<gint>(index));
  }
}

}  // namespace publishing
