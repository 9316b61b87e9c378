// SPDX-License-Identifier: Apache-2.0
#include "tests/support/PrintDialogUser.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "base/GlibHandles.h"
#include "base/Translation.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/PrintDialogHost.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

constexpr const char* kTabName = "Publishing";
constexpr guint kLongestWait = 60;  // seconds

GtkWidget* templateChild(GtkWidget* dialog, const char* id) {
  return GTK_WIDGET(gtk_widget_get_template_child(dialog, GTK_TYPE_PRINT_UNIX_DIALOG, id));
}

// What a tab is called, less the mark that something of it is on.
std::string tabName(const gchar* label) {
  const std::string name = label != nullptr ? label : "";
  return name.substr(0, name.find(" ✓"));
}

// Where the items of a menu are in its list, which has a line among them.
std::vector<int> rowsOfItems(GtkWidget* comboBox) {
  GtkTreeModel* list = gtk_combo_box_get_model(GTK_COMBO_BOX(comboBox));
  std::vector<int> rows;
  GtkTreeIter place;
  for (int row = 0; gtk_tree_model_iter_nth_child(list, &place, nullptr, row) != 0; ++row) {
    gchar* title = nullptr;
    gtk_tree_model_get(list, &place, 0, &title, -1);
    const GlibText owner(title);
    if (title != nullptr) rows.push_back(row);
  }
  return rows;
}

}  // namespace

PrintDialogUser::PrintDialogUser(GtkPrintSettings* settings)
    : watch([this](const auto& title, const auto& message, const auto&) {
        alerts.push_back({title, message});
      }) {
  dialog_ = shareGObject(gtk_print_unix_dialog_new(nullptr, nullptr));
  auto* dialog = GTK_PRINT_UNIX_DIALOG(dialog_.get());
  PrintDialogHost::attach(dialog);
  if (settings != nullptr) gtk_print_unix_dialog_set_settings(dialog, settings);
  const auto respond = [](GtkDialog* responding, gint response, gpointer self) {
    auto& user = *static_cast<PrintDialogUser*>(self);
    if (response != GTK_RESPONSE_OK) return;
    ++user.responses_;
    user.lastJob_.reset(gtk_print_unix_dialog_get_settings(GTK_PRINT_UNIX_DIALOG(responding)));
  };
  g_signal_connect(dialog, "response", G_CALLBACK(+respond), this);
  gtk_widget_show(dialog_.get());
}

PrintDialogUser::~PrintDialogUser() {
  toolkit::destroyWindow(GTK_WINDOW(dialog_.get()));
  dialog_.reset();  // GTK looks for conflicts in a destroyed dialog that somebody holds on to
  GtkStage::settle();
}

void PrintDialogUser::waitUntil(const char* what, const std::function<bool()>& condition) {
  bool late = false;
  const guint clock = g_timeout_add_seconds(
      kLongestWait,
      [](gpointer data) -> gboolean {
        *static_cast<bool*>(data) = true;
        return G_SOURCE_CONTINUE;
      },
      &late);
  while (!late && !condition())
    g_main_context_iteration(nullptr, TRUE);
  g_source_remove(clock);
  if (late) throw std::runtime_error(std::string("waited in vain for ") + what);
}

void PrintDialogUser::choosePrinter(const std::string& name) {
  const std::string front = frontTab();
  selectPrinter(name);
  openTab(translated(kTabName));
  waitUntil("the panel or the reason", [&] { return hasPanel() || !shows("Asking the printer"); });
  GtkStage::settle();
  openTab(front);
}

void PrintDialogUser::choosePrinterOnly(const std::string& name) {
  selectPrinter(name);
  waitUntil("the panel's tab", [&] { return gtk_widget_get_sensitive(tabLabel()) != 0; });
  GtkStage::settle();
}

void PrintDialogUser::selectPrinter(const std::string& name) {
  auto* dialog = GTK_PRINT_UNIX_DIALOG(this->dialog());
  waitUntil("the printer in the list", [&] { return gestures::pickPrinter(dialog, name); });
  waitUntil("the printer's details", [&] {
    GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(dialog);
    return printer != nullptr && name == gtk_printer_get_name(printer);
  });
}

GtkNotebook* PrintDialogUser::tabs() const {
  return GTK_NOTEBOOK(templateChild(dialog(), "notebook"));
}

GtkWidget* PrintDialogUser::page() const {
  for (int index = 0; index < gtk_notebook_get_n_pages(tabs()); ++index) {
    GtkWidget* content = gtk_notebook_get_nth_page(tabs(), index);
    const gchar* label = gtk_notebook_get_tab_label_text(tabs(), content);
    if (tabName(label) == translated(kTabName)) return content;
  }
  return nullptr;
}

GtkWidget* PrintDialogUser::tabLabel() const {
  return page() != nullptr ? gtk_notebook_get_tab_label(tabs(), page()) : nullptr;
}

void PrintDialogUser::openTab(const std::string& label) {
  for (int index = 0; index < gtk_notebook_get_n_pages(tabs()); ++index) {
    GtkWidget* content = gtk_notebook_get_nth_page(tabs(), index);
    const gchar* text = gtk_notebook_get_tab_label_text(tabs(), content);
    if (tabName(text) == label) gtk_notebook_set_current_page(tabs(), index);
  }
  GtkStage::settle();
}

void PrintDialogUser::openPanelTab(int index) {
  gtk_notebook_set_current_page(GTK_NOTEBOOK(find("tabView")), index);
  GtkStage::settle();
}

std::string PrintDialogUser::frontTab() const {
  GtkWidget* front = gtk_notebook_get_nth_page(tabs(), gtk_notebook_get_current_page(tabs()));
  return tabName(gtk_notebook_get_tab_label_text(tabs(), front));
}

GtkWidget* PrintDialogUser::find(const char* id) const {
  GtkWidget* found = nullptr;
  gestures::forEachWidget(dialog(), [&](GtkWidget* widget) {
    if (toolkit::idOf(G_OBJECT(widget)) == id) found = widget;
  });
  return found;
}

void PrintDialogUser::click(const char* checkBox) {
  gestures::click(find(checkBox));
  GtkStage::settle();
}

void PrintDialogUser::pick(const char* popUp, int index) {
  GtkWidget* comboBox = find(popUp);
  if (gtk_widget_is_sensitive(comboBox) != 0) {
    gtk_combo_box_set_active(GTK_COMBO_BOX(comboBox),
                             rowsOfItems(comboBox).at(static_cast<std::size_t>(index)));
  }
  GtkStage::settle();
}

void PrintDialogUser::type(const char* text) {
  auto* entry = GTK_ENTRY(find("PiPageNum"));
  if (gtk_widget_is_sensitive(GTK_WIDGET(entry)) == 0) return;
  gtk_editable_select_region(GTK_EDITABLE(entry), 0, -1);
  gestures::backspace(entry);
  GtkStage::settle();
  gestures::insert(entry, text);
  GtkStage::settle();
}

std::vector<std::string> PrintDialogUser::choosePreset(const char* label, const char* below) {
  return gestures::chooseFromMenu(find("Presets"), label, below);
}

void PrintDialogUser::setDialogOption(const char* name, const char* choice) {
  if (!DialogOptionSet::newest().set(name, choice)) {
    throw std::runtime_error(std::string("the dialog has no option ") + name);
  }
  GtkStage::settle();
}

void PrintDialogUser::setReverse(bool reverse) {
  toolkit::setActive(GTK_CHECK_BUTTON(templateChild(dialog(), "reverse_check")), reverse);
  GtkStage::settle();
}

bool PrintDialogUser::print() {
  const int before = responses_;
  gestures::click(gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog()), GTK_RESPONSE_OK));
  GtkStage::settle();
  return responses_ != before;
}

std::map<std::string, std::string> PrintDialogUser::settings() const {
  const GObjectPtr<GtkPrintSettings> current(
      gtk_print_unix_dialog_get_settings(GTK_PRINT_UNIX_DIALOG(dialog())));
  std::map<std::string, std::string> values;
  gtk_print_settings_foreach(
      current.get(),
      [](const gchar* key, const gchar* value, gpointer map) {
        (*static_cast<std::map<std::string, std::string>*>(map))[key] = value;
      },
      &values);
  return values;
}

std::string PrintDialogUser::setting(const std::string& name) const {
  const auto all = settings();
  const auto found = all.find(name);
  return found != all.end() ? found->second : "(none)";
}

bool PrintDialogUser::isTicked(const char* checkBox) const {
  return toolkit::isActive(GTK_CHECK_BUTTON(find(checkBox)));
}

bool PrintDialogUser::isSensitive(const char* control) const {
  return gtk_widget_is_sensitive(find(control)) != 0;
}

int PrintDialogUser::picked(const char* popUp) const {
  const std::vector<int> rows = rowsOfItems(find(popUp));
  const auto row =
      std::find(rows.begin(), rows.end(), gtk_combo_box_get_active(GTK_COMBO_BOX(find(popUp))));
  return row != rows.end() ? static_cast<int>(row - rows.begin()) : -1;
}

std::string PrintDialogUser::text(const char* entry) const {
  return toolkit::textOf(GTK_ENTRY(find(entry)));
}

std::string PrintDialogUser::selection(const char* entry) const {
  gint start = 0;
  gint end = 0;
  gtk_editable_get_selection_bounds(GTK_EDITABLE(find(entry)), &start, &end);
  const GlibText text(gtk_editable_get_chars(GTK_EDITABLE(find(entry)), start, end));
  return text.get();
}

bool PrintDialogUser::hasFocus(const char* control) const {
  GtkWidget* focus = gtk_window_get_focus(GTK_WINDOW(dialog()));
  return focus != nullptr &&
         (focus == find(control) || gtk_widget_is_ancestor(focus, find(control)) != 0);
}

int PrintDialogUser::frontPanelTab() const {
  return gtk_notebook_get_current_page(GTK_NOTEBOOK(find("tabView")));
}

std::string PrintDialogUser::tooltip(const char* control) const {
  gchar* text = nullptr;
  g_object_get(find(control), "tooltip-text", &text, nullptr);
  const GlibText tooltip(text);
  return text != nullptr ? text : "";
}

bool PrintDialogUser::showsAnywhere(const std::string& text) const {
  bool found = false;
  gestures::forEachWidget(dialog(), [&](GtkWidget* widget) {
    if (!GTK_IS_LABEL(widget) || gtk_widget_get_mapped(widget) == 0) return;
    const std::string shown = gtk_label_get_text(GTK_LABEL(widget));
    found = found || shown.find(text) != std::string::npos;
  });
  return found;
}

std::string PrintDialogUser::buttonLabel(const char* button) const {
  return gtk_button_get_label(GTK_BUTTON(find(button)));
}

bool PrintDialogUser::shows(const std::string& text) const {
  bool found = false;
  if (page() == nullptr) return false;
  gestures::forEachWidget(page(), [&](GtkWidget* widget) {
    if (!GTK_IS_LABEL(widget) || gtk_widget_get_child_visible(widget) == 0) return;
    GtkWidget* top = gtk_widget_get_ancestor(widget, GTK_TYPE_STACK);
    if (top == nullptr) return;
    GtkWidget* inFront = gtk_stack_get_visible_child(GTK_STACK(top));
    if (gtk_widget_is_ancestor(widget, inFront) == 0) return;
    found =
        found || std::string(gtk_label_get_text(GTK_LABEL(widget))).find(text) != std::string::npos;
  });
  return found;
}

}  // namespace publishing
