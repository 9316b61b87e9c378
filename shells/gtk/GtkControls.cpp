// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkControls.h"

#include <iterator>
#include <utility>

#include "base/GlibHandles.h"
#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

// GTK takes a time that grows with the square of a menu's length, and shows hardly any more items
// than these at once.
constexpr std::size_t kMostMenuItems = 200;

}  // namespace

GtkCheckBox::GtkCheckBox(GtkCheckButton* button) : GtkControl(GTK_WIDGET(button)) {
  // A click takes a mixed box to off: it is active, and the user sees no third state any more.
  const auto settle = [](GtkCheckButton* toggled, gpointer) { toolkit::setMixed(toggled, false); };
  handlers().connect(button, "toggled", G_CALLBACK(+settle), nullptr);
  handlers().connect(button, "toggled", G_CALLBACK(userChanged), this, G_CONNECT_AFTER);
}

int GtkCheckBox::state() const {
  if (toolkit::isMixed(button())) return -1;
  return toolkit::isActive(button()) ? 1 : 0;
}

void GtkCheckBox::setState(int state) {
  const SignalHandlers::Block block(handlers());
  toolkit::setActive(button(), state != 0);
  toolkit::setMixed(button(), state < 0);
}

void GtkCheckBox::setAction(const char* signal, Action action) {
  action_ = std::move(action);
  const auto send = [](GtkCheckButton*, gpointer self) {
    auto& box = *static_cast<GtkCheckBox*>(self);
    guarded([&] { box.action_(box); });
  };
  handlers().connect(button(), signal, G_CALLBACK(+send), this);
}

GtkRadioMatrix::GtkRadioMatrix(GtkWidget* container) : GtkControl(container) {
  for (GtkWidget* child : toolkit::childrenOf(container)) {
    if (!toolkit::isRadioButton(G_OBJECT(child))) continue;
    auto* button = GTK_CHECK_BUTTON(child);
    cells_.push_back(std::make_unique<Cell>(Cell{this, shareGObject(button), {}}));
    handlers().connect(button, "clicked", G_CALLBACK(&GtkRadioMatrix::dealtWith),
                       cells_.back().get(), G_CONNECT_AFTER);
  }
  turnAllOff();
}

std::int64_t GtkRadioMatrix::selectedColumn() const {
  for (std::size_t column = 0; column < cells_.size(); ++column) {
    if (toolkit::isActive(cells_[column]->button.get())) return static_cast<std::int64_t>(column);
  }
  return -1;
}

void GtkRadioMatrix::selectCellAtRow(std::int64_t row, std::int64_t column) {
  if (row == 0 && column >= 0 && column < std::ssize(cells_)) {
    activate(cells_[static_cast<std::size_t>(column)]->button.get());
  } else {
    deselectAllCells();
  }
}

void GtkRadioMatrix::deselectAllCells() {
  if (allowsEmptySelection_) turnAllOff();
}

// GTK turns the buttons of a group off only for another one, which is no member for long:
// accessibility tools would count it.
void GtkRadioMatrix::turnAllOff() {
  if (cells_.empty()) return;
  const auto other = shareGObject(toolkit::newRadioButton(cells_.front()->button.get()));
  activate(other.get());
}

void GtkRadioMatrix::setAction(GtkCheckButton* button, const char* signal, const Action& action) {
  for (const auto& cell : cells_) {
    if (cell->button.get() != button) continue;
    cell->action = action;
    handlers().connect(button, signal, G_CALLBACK(&GtkRadioMatrix::clicked), cell.get());
  }
}

void GtkRadioMatrix::activate(GtkCheckButton* button) {
  const SignalHandlers::Block block(handlers());
  toolkit::setActive(button, true);
}

// GTK also clicks the button that the user's click turns off.
void GtkRadioMatrix::clicked(GtkCheckButton* button, gpointer cell) {
  if (!toolkit::isActive(button)) return;
  const auto& clickedCell = *static_cast<Cell*>(cell);
  guarded([&] { clickedCell.action(*clickedCell.matrix); });
}

void GtkRadioMatrix::dealtWith(GtkCheckButton* button, gpointer cell) {
  if (!toolkit::isActive(button)) return;
  guarded([&] { static_cast<Cell*>(cell)->matrix->tellUserChanged(); });
}

GtkPopUpButton::GtkPopUpButton(GtkComboBox* comboBox) : GtkControl(GTK_WIDGET(comboBox)) {
  // Items have a title, if only an empty one.
  const auto isLine = [](GtkTreeModel* list, GtkTreeIter* row, gpointer) -> gboolean {
    gchar* title = nullptr;
    gtk_tree_model_get(list, row, kTitle, &title, -1);
    const GlibText owner(title);
    return title == nullptr ? TRUE : FALSE;
  };
  gtk_combo_box_set_row_separator_func(comboBox, +isLine, nullptr, nullptr);
  handlers().connect(comboBox, "changed", G_CALLBACK(userChanged), this, G_CONNECT_AFTER);
}

gint GtkPopUpButton::rowOf(std::int64_t index) const {
  const auto row = static_cast<gint>(index);
  return line_ && row >= *line_ ? row + 1 : row;
}

GtkListStore* GtkPopUpButton::items() const {
  return GTK_LIST_STORE(gtk_combo_box_get_model(comboBox()));
}

std::optional<GtkTreeIter> GtkPopUpButton::item(std::int64_t index) const {
  GtkTreeIter place;
  if (index < 0 || index >= numberOfItems() ||
      !gtk_tree_model_iter_nth_child(GTK_TREE_MODEL(items()), &place, nullptr, rowOf(index))) {
    return std::nullopt;
  }
  return place;
}

void GtkPopUpButton::removeAllItems() {
  const SignalHandlers::Block block(handlers());
  titles_.clear();
  line_.reset();
  gtk_list_store_clear(items());
}

void GtkPopUpButton::addItemsWithTitles(const std::vector<std::string>& titles) {
  // A menu that is shown meanwhile grows item by item, looking for the place of each.
  const SignalHandlers::Block block(handlers());
  if (titles_.size() + titles.size() > kMostMenuItems) toolkit::showAsList(comboBox());
  const auto list = shareGObject(items());
  const gint selected = gtk_combo_box_get_active(comboBox());
  gtk_combo_box_set_model(comboBox(), nullptr);
  for (const std::string& title : titles) {
    titles_.push_back(title);
    gtk_list_store_insert_with_values(list.get(), nullptr, -1, kTitle, displayText(title).c_str(),
                                      kSensitive, TRUE, -1);
  }
  gtk_combo_box_set_model(comboBox(), GTK_TREE_MODEL(list.get()));
  gtk_combo_box_set_active(comboBox(), selected);
}

std::int64_t GtkPopUpButton::numberOfItems() const {
  return std::ssize(titles_);
}

std::string GtkPopUpButton::itemTitleAtIndex(std::int64_t index) const {
  return titles_.at(static_cast<std::size_t>(index));
}

bool GtkPopUpButton::isItemEnabledAtIndex(std::int64_t index) const {
  auto place = item(index);
  gboolean sensitive = FALSE;
  if (place) gtk_tree_model_get(GTK_TREE_MODEL(items()), &*place, kSensitive, &sensitive, -1);
  return sensitive != 0;
}

void GtkPopUpButton::setItemEnabledAtIndex(std::int64_t index, bool enabled) {
  auto place = item(index);
  // Each change has GTK look through the whole menu.
  if (place && isItemEnabledAtIndex(index) != enabled) {
    gtk_list_store_set(items(), &*place, kSensitive, static_cast<gboolean>(enabled), -1);
  }
}

void GtkPopUpButton::selectItemAtIndex(std::int64_t index) {
  const SignalHandlers::Block block(handlers());
  const bool exists = index >= 0 && index < numberOfItems();
  gtk_combo_box_set_active(comboBox(), exists ? rowOf(index) : -1);
}

std::int64_t GtkPopUpButton::indexOfSelectedItem() const {
  const gint row = gtk_combo_box_get_active(comboBox());
  return line_ && row > *line_ ? row - 1 : row;
}

void GtkPopUpButton::separateItem(std::int64_t index) {
  const SignalHandlers::Block block(handlers());
  GtkTreeIter line;
  if (line_ &&
      gtk_tree_model_iter_nth_child(GTK_TREE_MODEL(items()), &line, nullptr, *line_) != 0) {
    gtk_list_store_remove(items(), &line);
  }
  line_.reset();
  if (index <= 0 || index >= numberOfItems()) return;
  line_ = static_cast<gint>(index);
  gtk_list_store_insert_with_values(items(), nullptr, *line_, kSensitive, TRUE, -1);
}

std::optional<std::string> GtkPopUpButton::titleOfSelectedItem() const {
  const std::int64_t index = indexOfSelectedItem();
  return index >= 0 ? std::optional(itemTitleAtIndex(index)) : std::nullopt;
}

std::int64_t GtkTabView::numberOfTabViewItems() const {
  return gtk_notebook_get_n_pages(notebook());
}

std::string GtkTabView::tabViewItemLabelAtIndex(std::int64_t index) const {
  GtkWidget* page = gtk_notebook_get_nth_page(notebook(), static_cast<gint>(index));
  const gchar* label = gtk_notebook_get_tab_label_text(notebook(), page);
  return label != nullptr ? label : "";
}

void GtkTabView::removeTabViewItemAtIndex(std::int64_t index) {
  if (index < 0 || index >= numberOfTabViewItems()) return;
  const SignalHandlers::Block block(handlers_);
  gtk_notebook_remove_page(notebook(), static_cast<gint>(index));
}

void GtkTabView::bringToFront(GtkWidget* widget) {
  const SignalHandlers::Block block(handlers_);
  for (gint index = 0; index < gtk_notebook_get_n_pages(notebook()); ++index) {
    GtkWidget* page = gtk_notebook_get_nth_page(notebook(), index);
    if (page == widget || gtk_widget_is_ancestor(widget, page) != 0) {
      gtk_notebook_set_current_page(notebook(), index);
    }
  }
}

void GtkTabView::setAction(const char* signal, std::function<void()> didSelect) {
  didSelect_ = std::move(didSelect);
  const auto send = [](GtkNotebook*, GtkWidget*, guint, gpointer self) {
    guarded([&] { static_cast<GtkTabView*>(self)->didSelect_(); });
  };
  handlers_.connect(notebook(), signal, G_CALLBACK(+send), this, G_CONNECT_AFTER);
}

}  // namespace publishing
