// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/ButtonRowLine.h"

#include "shells/DisplayText.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

constexpr int kMargin = 12;

// The box around the dialog's buttons; null when they are in the title bar.
GtkBox* buttonRow(GtkDialog* dialog) {
  gboolean isInTitleBar = FALSE;
  g_object_get(dialog, "use-header-bar", &isInTitleBar, nullptr);
  GtkWidget* button = gtk_dialog_get_widget_for_response(dialog, GTK_RESPONSE_CANCEL);
  if (isInTitleBar == TRUE || button == nullptr) return nullptr;
  GtkWidget* buttons = gtk_widget_get_parent(button);
  GtkWidget* row = buttons != nullptr ? gtk_widget_get_parent(buttons) : nullptr;
  return GTK_IS_BOX(row) ? GTK_BOX(row) : nullptr;
}

}  // namespace

void ButtonRowLine::show(GtkDialog* dialog, const std::string& text) {
  if (label_ == nullptr) {
    GtkBox* row = text.empty() ? nullptr : buttonRow(dialog);
    if (row == nullptr) return;
    label_ = shareGObject(gtk_label_new(nullptr));
    auto* label = GTK_LABEL(label_.get());
    gtk_label_set_ellipsize(label, PANGO_ELLIPSIZE_END);
    gtk_label_set_xalign(label, 0);
    gtk_widget_set_margin_start(label_.get(), kMargin);
    gtk_widget_set_hexpand(label_.get(), TRUE);
    toolkit::insertAfter(row, label_.get(), nullptr);
    gtk_widget_show(label_.get());
  }
  const std::string line = displayText(text);
  if (line == gtk_label_get_text(GTK_LABEL(label_.get()))) return;
  gtk_label_set_text(GTK_LABEL(label_.get()), line.c_str());
  gtk_widget_set_tooltip_text(label_.get(), line.empty() ? nullptr : line.c_str());
}

}  // namespace publishing
