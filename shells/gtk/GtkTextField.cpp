// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/GtkTextField.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

// The byte at which the character begins; the text's end for -1 or a place behind it.
std::size_t byteOfCharacter(const std::string& text, gint character) {
  const glong count = g_utf8_strlen(text.c_str(), -1);
  if (character < 0 || character > count) return text.size();
  return static_cast<std::size_t>(g_utf8_offset_to_pointer(text.c_str(), character) - text.c_str());
}

}  // namespace

GtkTextField::GtkTextField(GtkEntry* entry) : GtkControl(GTK_WIDGET(entry)) {
  GtkWidget* edited = toolkit::editedPartOf(entry);
  handlers().connect(edited, "insert-text", G_CALLBACK(&GtkTextField::insertText), this);
  handlers().connect(edited, "delete-text", G_CALLBACK(&GtkTextField::deleteText), this);
  handlers().connect(edited, "changed", G_CALLBACK(userChanged), this, G_CONNECT_AFTER);
}

GtkTextField::~GtkTextField() {
  if (forgetSource_ != 0) g_source_remove(forgetSource_);
}

std::optional<std::string> GtkTextField::stringValue() const {
  const std::string shown = toolkit::textOf(entry());
  return shown == shownValue_ ? value_ : shown;
}

void GtkTextField::setStringValue(const std::string& value) {
  show(displayText(value));
  value_ = value;
  shownValue_ = toolkit::textOf(entry());
}

void GtkTextField::setFormatter(std::shared_ptr<const Formatter> formatter) {
  formatter_ = std::move(formatter);
}

void GtkTextField::select(std::size_t first, std::size_t length) {
  gtk_widget_grab_focus(widget());
  gtk_editable_select_region(editable(), static_cast<gint>(first),
                             static_cast<gint>(first + length));
}

void GtkTextField::show(const std::string& text) {
  const SignalHandlers::Block block(handlers());
  if (text != toolkit::textOf(entry())) toolkit::setText(entry(), text);
}

void GtkTextField::restore(const Content& content) {
  show(content.text);
  gtk_editable_set_position(editable(), content.cursor);
  tellUserChanged();
}

// GTK makes the deletion and the insertion of one keystroke in one go, before its main loop gets
// the next event.
void GtkTextField::rememberUntilNextEvent() {
  if (forgetSource_ != 0) return;
  beforeDeletion_ = {toolkit::textOf(entry()), gtk_editable_get_position(editable())};
  forgetSource_ = g_idle_add_full(G_PRIORITY_HIGH, &GtkTextField::forget, this, nullptr);
}

gboolean GtkTextField::forget(gpointer self) {
  auto& field = *static_cast<GtkTextField*>(self);
  field.beforeDeletion_.reset();
  field.forgetSource_ = 0;
  return G_SOURCE_REMOVE;
}

bool GtkTextField::mayBecome(const std::string& edited, glong behind) {
  std::string shown = edited;
  if (!formatter_->isPartialStringValid(edited, shown)) {
    if (beforeDeletion_) restore(*beforeDeletion_);
    gtk_widget_error_bell(widget());
    return false;
  }
  if (shown == edited) return true;
  show(displayText(shown));
  const glong length = g_utf8_strlen(toolkit::textOf(entry()).c_str(), -1);
  gtk_editable_set_position(editable(), static_cast<gint>(std::max(length - behind, 0L)));
  tellUserChanged();
  return false;
}

bool GtkTextField::mayInsert(std::string_view text, gint position) {
  if (formatter_ == nullptr) return true;
  std::string edited = toolkit::textOf(entry());
  const std::size_t place = byteOfCharacter(edited, position);
  const glong behind = g_utf8_strlen(edited.c_str() + place, -1);
  edited.insert(place, text);
  return mayBecome(edited, behind);
}

bool GtkTextField::mayDelete(gint start, gint end) {
  if (formatter_ == nullptr) return true;
  std::string edited = toolkit::textOf(entry());
  const std::size_t first = byteOfCharacter(edited, start);
  edited.erase(first, byteOfCharacter(edited, end) - first);
  if (!mayBecome(edited, g_utf8_strlen(edited.c_str() + first, -1))) return false;
  rememberUntilNextEvent();
  return true;
}

void GtkTextField::insertText(GtkEditable* editable, const gchar* text, gint length, gint* position,
                              gpointer self) {
  const std::size_t size = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
  bool goesOn = true;
  guarded([&] { goesOn = static_cast<GtkTextField*>(self)->mayInsert({text, size}, *position); });
  if (goesOn) return;
  *position = gtk_editable_get_position(editable);
  g_signal_stop_emission_by_name(editable, "insert-text");
}

void GtkTextField::deleteText(GtkEditable* editable, gint start, gint end, gpointer self) {
  bool goesOn = true;
  guarded([&] { goesOn = static_cast<GtkTextField*>(self)->mayDelete(start, end); });
  if (!goesOn) g_signal_stop_emission_by_name(editable, "delete-text");
}

}  // namespace publishing
