// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrinterList.h"

#include "shells/Guarded.h"

namespace publishing {

PrinterList::PrinterList(GtkPrintUnixDialog* dialog) {
  GObject* list = gtk_widget_get_template_child(GTK_WIDGET(dialog), GTK_TYPE_PRINT_UNIX_DIALOG,
                                                "printer_treeview");
  if (!GTK_IS_TREE_VIEW(list)) return;
  selection_ = shareGObject(G_OBJECT(gtk_tree_view_get_selection(GTK_TREE_VIEW(list))));
  const auto changed = [](GtkTreeSelection*, gpointer self) {
    guarded([&] { static_cast<PrinterList*>(self)->picked_(); });
  };
  handlers_.connect(selection_.get(), "changed", G_CALLBACK(+changed), this);
}

GObjectPtr<GtkPrinter> PrinterList::picked() const {
  GtkTreeModel* rows = nullptr;
  GtkTreeIter row;
  if (selection_ == nullptr ||
      gtk_tree_selection_get_selected(GTK_TREE_SELECTION(selection_.get()), &rows, &row) == 0) {
    return nullptr;
  }
  for (gint column = 0; column < gtk_tree_model_get_n_columns(rows); ++column) {
    if (g_type_is_a(gtk_tree_model_get_column_type(rows, column), G_TYPE_OBJECT) == 0) continue;
    GObject* object = nullptr;
    gtk_tree_model_get(rows, &row, column, &object, -1);
    GObjectPtr<GObject> owned(object);
    if (GTK_IS_PRINTER(object)) return GObjectPtr<GtkPrinter>(GTK_PRINTER(owned.release()));
  }
  return nullptr;
}

}  // namespace publishing
