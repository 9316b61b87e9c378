// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkFieldNote.h"

#include <algorithm>

#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/gtk/LineHeight.h"

namespace publishing {
namespace {

const char* iconOf(FieldNote::Kind kind) {
  switch (kind) {
    case FieldNote::Kind::Fault:
      return "dialog-error-symbolic";
    case FieldNote::Kind::Remark:
      return "dialog-warning-symbolic";
    default:
      return nullptr;
  }
}

void setClass(GtkWidget* widget, const char* name, bool isOn) {
  GtkStyleContext* style = gtk_widget_get_style_context(widget);
  if (isOn) {
    gtk_style_context_add_class(style, name);
  } else {
    gtk_style_context_remove_class(style, name);
  }
}

}  // namespace

GtkFieldNote::GtkFieldNote(GtkEntry* entry, GtkLabel* label)
    : entry_(shareGObject(entry)), label_(shareGObject(label)) {
  const int lines = std::max(gtk_label_get_lines(label), 1);
  gtk_widget_set_size_request(GTK_WIDGET(label), -1, heightOfLines(GTK_WIDGET(label), lines));
  const auto focusChanged = [](GtkWidget*, GParamSpec*, gpointer self) {
    guarded([&] {
      auto& note = *static_cast<GtkFieldNote*>(self);
      if (note.kind_ != FieldNote::Kind::Unfinished || gtk_widget_has_focus(note.edited())) return;
      note.kind_ = FieldNote::Kind::Fault;
      note.mark();
    });
  };
  handlers_.connect(edited(), "notify::has-focus", G_CALLBACK(+focusChanged), this);
}

void GtkFieldNote::show(const FieldNote& note) {
  const std::string text = displayText(note.text);
  // The window is laid out anew for each new text.
  if (text != gtk_label_get_text(label_.get())) gtk_label_set_text(label_.get(), text.c_str());
  if (note.kind == kind_) return;
  kind_ = note.kind;
  mark();
}

// The icon says what the colour says, to those who do not see it.
void GtkFieldNote::mark() {
  const bool isQuiet = kind_ == FieldNote::Kind::Hint || kind_ == FieldNote::Kind::Unfinished;
  setClass(label(), "dim-label", isQuiet);
  setClass(entry(), "error", kind_ == FieldNote::Kind::Fault);
  gtk_entry_set_icon_from_icon_name(entry_.get(), GTK_ENTRY_ICON_SECONDARY, iconOf(kind_));
}

}  // namespace publishing
