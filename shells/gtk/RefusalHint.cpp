// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/RefusalHint.h"

#include <utility>

#include "shells/DisplayText.h"

namespace publishing {
namespace {

constexpr guint kSeconds = 6;
constexpr int kWidth = 40;  // characters
constexpr int kBorder = 6;

}  // namespace

RefusalHint::~RefusalHint() {
  if (clock_ != 0) g_source_remove(clock_);
  if (popover_ != nullptr) gtk_widget_destroy(popover_.get());
}

void RefusalHint::make() {
  popover_ = shareGObject(gtk_popover_new(field_));
  auto* popover = GTK_POPOVER(popover_.get());
  gtk_popover_set_modal(popover, FALSE);  // the keyboard stays on the field
  gtk_popover_set_position(popover, GTK_POS_BOTTOM);
  gtk_container_set_border_width(GTK_CONTAINER(popover), kBorder);
  label_ = gtk_label_new(nullptr);
  gtk_label_set_line_wrap(GTK_LABEL(label_), TRUE);
  gtk_label_set_max_width_chars(GTK_LABEL(label_), kWidth);
  gtk_container_add(GTK_CONTAINER(popover), label_);
  gtk_widget_show(label_);
  const auto left = [](GtkWidget*, GdkEvent*, gpointer self) -> gboolean {
    static_cast<RefusalHint*>(self)->hide();
    return GDK_EVENT_PROPAGATE;
  };
  handlers_.connect(field_, "focus-out-event", G_CALLBACK(+left), this);
}

void RefusalHint::show(const std::string& text) {
  gtk_widget_error_bell(field_);
  if (gtk_widget_get_mapped(field_) == 0) return;
  if (popover_ == nullptr) make();
  gtk_label_set_text(GTK_LABEL(label_), displayText(text).c_str());
  gtk_popover_popup(GTK_POPOVER(popover_.get()));
  if (clock_ != 0) g_source_remove(clock_);
  const auto over = [](gpointer self) -> gboolean {
    auto& hint = *static_cast<RefusalHint*>(self);
    hint.clock_ = 0;
    hint.hide();
    return G_SOURCE_REMOVE;
  };
  clock_ = g_timeout_add_seconds(kSeconds, +over, this);
}

void RefusalHint::hide() {
  if (clock_ != 0) g_source_remove(std::exchange(clock_, 0U));
  if (popover_ != nullptr) gtk_popover_popdown(GTK_POPOVER(popover_.get()));
}

std::string RefusalHint::text() const {
  if (clock_ == 0) return {};
  return gtk_label_get_text(GTK_LABEL(label_));
}

}  // namespace publishing
