// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/SheetsView.h"

#include <cmath>
#include <utility>

#include <gdk/gdkkeysyms.h>

#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/SheetsPainter.h"

namespace publishing {
namespace {

// The screen's height that the rest of a print dialog takes.
constexpr double kHeightOfOthers = 600;

std::optional<SheetsLayout::Key> keyOf(guint key) {
  switch (key) {
    case GDK_KEY_Home:
    case GDK_KEY_KP_Home:
      return SheetsLayout::Key::Home;
    case GDK_KEY_End:
    case GDK_KEY_KP_End:
      return SheetsLayout::Key::End;
    case GDK_KEY_Left:
    case GDK_KEY_KP_Left:
      return SheetsLayout::Key::Left;
    case GDK_KEY_Right:
    case GDK_KEY_KP_Right:
      return SheetsLayout::Key::Right;
    default:
      return std::nullopt;
  }
}

int whole(double pixels) {
  return static_cast<int>(std::ceil(pixels));
}

}  // namespace

SheetsView::SheetsView(std::function<void(const std::string&)> say)
    : say_(std::move(say)),
      area_(*this),
      scroller_(shareGObject(GTK_WIDGET(
          g_object_new(GTK_TYPE_SCROLLED_WINDOW, "child", area(), "hscrollbar-policy",
                       GTK_POLICY_NEVER, "vscrollbar-policy", GTK_POLICY_AUTOMATIC, nullptr)))) {
  const auto turned = [](GtkWidget*, GtkTextDirection, gpointer self) {
    guarded([&] { static_cast<SheetsView*>(self)->layOut(); });
  };
  const auto tooltip = [](GtkWidget*, gint x, gint y, gboolean byKeyboard, GtkTooltip* shown,
                          gpointer self) -> gboolean {
    bool hasText = false;
    guarded([&] {
      hasText = static_cast<SheetsView*>(self)->showTooltip(x, y, byKeyboard != 0, shown);
    });
    return hasText ? TRUE : FALSE;
  };
  gtk_widget_set_has_tooltip(area(), TRUE);
  handlers_.connect(area(), "direction-changed", G_CALLBACK(+turned), this);
  handlers_.connect(area(), "query-tooltip", G_CALLBACK(+tooltip), this);
  toolkit::showWithChildren(widget());
}

void SheetsView::show(JobSheets job) {
  layout_.show(std::move(job));
  describe();
  layOut();
}

void SheetsView::describe() {
  area_.setName(displayText(translated("Picture of the sheets")));
  area_.setDescription(displayText(layout_.sentence()));
}

void SheetsView::resized() {
  if (area_.width() != width_) layOut();
}

// Without a place in a window yet, the picture waits for it.
void SheetsView::layOut() {
  width_ = area_.width();
  if (width_ <= 1) return;
  const double fontScale = SheetsLayout::textScaleOf(area_.fontSize());
  const double height = SheetsLayout::heightOn(area_.screenHeight(), kHeightOfOthers, fontScale);
  const bool isRightToLeft = gtk_widget_get_direction(area()) == GTK_TEXT_DIR_RTL;
  layout_.layOut({static_cast<double>(width_), height, fontScale, isRightToLeft});
  gtk_widget_set_size_request(area(), -1, whole(layout_.height()));
  gtk_scrolled_window_set_min_content_height(GTK_SCROLLED_WINDOW(widget()), whole(height));
  gtk_widget_queue_draw(area());
}

void SheetsView::paint(cairo_t* context) {
  cairo_save(context);
  cairo_translate(context, layout_.left(), 0);
  cairo_scale(context, layout_.scale(), layout_.scale());
  paintSheets(context, area(), layout_.picture());
  cairo_restore(context);
  if (gtk_widget_has_visible_focus(area()) != 0 && layout_.current())
    area_.paintFocus(context, placeOf(*layout_.current()));
}

void SheetsView::focusChanged(bool hasFocus) {
  if (hasFocus) return goTo(layout_.current().value_or(0));
  describe();
  say_({});
  gtk_widget_queue_draw(area());
}

GdkRectangle SheetsView::placeOf(std::size_t item) const {
  const SheetsLayout::Place place = layout_.placeOf(item);
  return {static_cast<int>(place.x), static_cast<int>(place.y), whole(place.width),
          whole(place.height)};
}

bool SheetsView::showTooltip(int x, int y, bool byKeyboard, GtkTooltip* tooltip) const {
  const auto item = byKeyboard ? layout_.current() : layout_.itemAt(x, y);
  if (!item) return false;
  const GdkRectangle place = placeOf(*item);
  gtk_tooltip_set_tip_area(tooltip, &place);
  gtk_tooltip_set_text(tooltip, displayText(layout_.wordsOf(*item)).c_str());
  return true;
}

// Whether the key is one that moves among the sheets.
bool SheetsView::keyPressed(guint key) {
  const auto move = keyOf(key);
  const auto item = move ? layout_.itemBy(*move) : std::nullopt;
  if (item) goTo(item);
  return item.has_value();
}

void SheetsView::goTo(std::optional<std::size_t> item) {
  if (!layout_.goTo(item)) return;
  const std::string words = layout_.wordsOf(*item);
  // A screen reader reads the new name of what has the focus.
  area_.setName(displayText(words));
  const GdkRectangle place = placeOf(*item);
  GtkAdjustment* position = gtk_scrolled_window_get_vadjustment(GTK_SCROLLED_WINDOW(widget()));
  gtk_adjustment_clamp_page(position, place.y, place.y + place.height);
  gtk_widget_queue_draw(area());
  say_(words);
}

}  // namespace publishing
