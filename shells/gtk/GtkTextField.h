// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <gtk/gtk.h>

#include "shells/gtk/GtkControls.h"

namespace publishing {

// On a GtkEntry. Every insertion and deletion is first shown to the formatter as the text that it
// would make; a refused one leaves the text as it was and rings the bell. Typing or pasting over a
// selection is one edit, although GTK makes it two.
class GtkTextField final : public GtkControl<TextField> {
 public:
  explicit GtkTextField(GtkEntry* entry);
  ~GtkTextField() override;

  [[nodiscard]] std::optional<std::string> stringValue() const override;
  void setStringValue(const std::string& value) override;
  void setFormatter(std::shared_ptr<const Formatter> formatter) override;

  // Puts the keyboard on the field, which is in a window, and selects `length` of its characters
  // from `first` on.
  void select(std::size_t first, std::size_t length);

 private:
  struct Content {
    std::string text;
    gint cursor;
  };

  [[nodiscard]] GtkEntry* entry() const { return GTK_ENTRY(widget()); }
  [[nodiscard]] GtkEditable* editable() const { return GTK_EDITABLE(widget()); }
  void show(const std::string& text);
  void restore(const Content& content);
  void rememberUntilNextEvent();

  // Whether the edit may go on as GTK makes it. `behind` is how many characters follow the place of
  // the edit: the cursor stays before them when the formatter has another text.
  bool mayBecome(const std::string& edited, glong behind);
  bool mayInsert(std::string_view text, gint position);
  bool mayDelete(gint start, gint end);

  static void insertText(GtkEditable* editable, const gchar* text, gint length, gint* position,
                         gpointer self);
  static void deleteText(GtkEditable* editable, gint start, gint end, gpointer self);
  static gboolean forget(gpointer self);

  std::shared_ptr<const Formatter> formatter_;

  // The text set last from code, and how the entry shows it: the entry holds valid UTF-8 of
  // limited length only.
  std::string value_;
  std::string shownValue_;

  // The field before a deletion that the same keystroke or paste may follow up with an insertion.
  std::optional<Content> beforeDeletion_;
  guint forgetSource_ = 0;
};

}  // namespace publishing
