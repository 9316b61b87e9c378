// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrinterList.h"

#include "shells/Guarded.h"

namespace publishing {

PrinterList::PrinterList(GtkPrintUnixDialog* dialog) {
  GObject* list =
      gtk_widget_get_template_child(GTK_WIDGET(dialog), GTK_TYPE_PRINT_UNIX_DIALOG, "printer_list");
  if (!GTK_IS_COLUMN_VIEW(list)) return;
  GtkSelectionModel* selection = gtk_column_view_get_model(GTK_COLUMN_VIEW(list));
  if (!GTK_IS_SINGLE_SELECTION(selection)) return;
  selection_ = shareGObject(G_OBJECT(selection));
  const auto changed = [](GObject*, GParamSpec*, gpointer self) {
    guarded([&] { static_cast<PrinterList*>(self)->picked_(); });
  };
  handlers_.connect(selection_.get(), "notify::selected", G_CALLBACK(+changed), this);
}

GObjectPtr<GtkPrinter> PrinterList::picked() const {
  if (selection_ == nullptr) return nullptr;
  gpointer printer = gtk_single_selection_get_selected_item(GTK_SINGLE_SELECTION(selection_.get()));
  return GTK_IS_PRINTER(printer) ? shareGObject(GTK_PRINTER(printer)) : nullptr;
}

}  // namespace publishing
