// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/RefusalHint.h"

#include <utility>

#include "shells/DisplayText.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

constexpr guint kSeconds = 6;
constexpr int kWidth = 40;  // characters
constexpr int kBorder = 6;

}  // namespace

RefusalHint::~RefusalHint() {
  if (clock_ != 0) g_source_remove(clock_);
  if (popover_ != nullptr) toolkit::destroyHint(popover_.get());
}

void RefusalHint::make() {
  label_ = gtk_label_new(nullptr);
  g_object_set(label_, "wrap", TRUE, nullptr);
  toolkit::setMargins(label_, kBorder);
  gtk_label_set_max_width_chars(GTK_LABEL(label_), kWidth);
  popover_ = shareGObject(toolkit::newHint(GTK_WIDGET(field_), label_));
  const auto left = [](GtkWidget* edited, GParamSpec*, gpointer self) {
    if (gtk_widget_has_focus(edited) == 0) static_cast<RefusalHint*>(self)->hide();
  };
  handlers_.connect(toolkit::editedPartOf(field_), "notify::has-focus", G_CALLBACK(+left), this);
}

void RefusalHint::show(const std::string& text) {
  gtk_widget_error_bell(GTK_WIDGET(field_));
  if (gtk_widget_get_mapped(GTK_WIDGET(field_)) == 0) return;
  if (popover_ == nullptr) make();
  gtk_label_set_text(GTK_LABEL(label_), displayText(text).c_str());
  gtk_popover_popup(popover_.get());
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
  if (popover_ != nullptr) gtk_popover_popdown(popover_.get());
}

std::string RefusalHint::text() const {
  if (clock_ == 0) return {};
  return gtk_label_get_text(GTK_LABEL(label_));
}

}  // namespace publishing
