// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/SheetsView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <gdk/gdkkeysyms.h>

#include "base/Translation.h"
#include "printing/SheetSentence.h"
#include "printing/SheetWords.h"
#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/gtk/dialog/SheetsPainter.h"

namespace publishing {
namespace {

constexpr int kMostRows = 4;  // what has no room in them is left out

// Sheets are smaller when they would not all be seen otherwise.
constexpr double kSizes[] = {1, 0.85, 0.72};

// In units. One row of sheets with its legend, and what is left of that on a small screen.
constexpr double kBestHeight = 150;
constexpr double kLeastHeight = 60;
// The screen's height that the rest of a print dialog takes.
constexpr double kHeightOfOthers = 600;

constexpr double kUsualFont = 14.7;  // pixels; 11 points on most screens
constexpr double kLargestScale = 4;
constexpr double kPointsInAnInch = 72;

// Larger texts make larger sheets.
double fontScaleOf(GtkWidget* widget) {
  PangoFontDescription* font = nullptr;
  GtkStyleContext* style = gtk_widget_get_style_context(widget);
  gtk_style_context_get(style, gtk_style_context_get_state(style), GTK_STYLE_PROPERTY_FONT, &font,
                        nullptr);
  double size = static_cast<double>(pango_font_description_get_size(font)) / PANGO_SCALE;
  if (pango_font_description_get_size_is_absolute(font) == 0)
    size *= gdk_screen_get_resolution(gtk_widget_get_screen(widget)) / kPointsInAnInch;
  pango_font_description_free(font);
  return std::clamp(size / kUsualFont, 1.0, kLargestScale);
}

}  // namespace

SheetsView::SheetsView(std::function<void(const std::string&)> say)
    : say_(std::move(say)),
      scroller_(shareGObject(gtk_scrolled_window_new(nullptr, nullptr))),
      area_(gtk_drawing_area_new()) {
  gtk_widget_set_can_focus(area_, TRUE);
  gtk_widget_set_has_tooltip(area_, TRUE);
  gtk_widget_add_events(area_, GDK_BUTTON_PRESS_MASK);
  gtk_container_add(GTK_CONTAINER(widget()), area_);
  auto* window = GTK_SCROLLED_WINDOW(widget());
  gtk_scrolled_window_set_policy(window, GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
  connect();
  gtk_widget_show_all(widget());
}

void SheetsView::connect() {
  const auto draw = [](GtkWidget*, cairo_t* context, gpointer self) -> gboolean {
    guarded([&] { static_cast<SheetsView*>(self)->draw(context); });
    return FALSE;
  };
  const auto allocated = [](GtkWidget*, GdkRectangle* place, gpointer self) {
    auto& view = *static_cast<SheetsView*>(self);
    if (place->width != view.width_) guarded([&] { view.layOut(); });
  };
  const auto restyled = [](GtkWidget*, gpointer self) {
    guarded([&] { static_cast<SheetsView*>(self)->layOut(); });
  };
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
  const auto key = [](GtkWidget*, GdkEventKey* event, gpointer self) -> gboolean {
    bool moved = false;
    guarded([&] { moved = static_cast<SheetsView*>(self)->moveBy(event->keyval); });
    return moved ? TRUE : FALSE;
  };
  const auto pressed = [](GtkWidget* area, GdkEventButton* event, gpointer self) -> gboolean {
    auto& view = *static_cast<SheetsView*>(self);
    gtk_widget_grab_focus(area);
    guarded([&] { view.goTo(view.itemAt(event->x, event->y)); });
    return TRUE;
  };
  const auto entered = [](GtkWidget*, GdkEventFocus*, gpointer self) -> gboolean {
    auto& view = *static_cast<SheetsView*>(self);
    guarded([&] { view.goTo(view.current_.value_or(0)); });
    return FALSE;
  };
  const auto left = [](GtkWidget* area, GdkEventFocus*, gpointer self) -> gboolean {
    auto& view = *static_cast<SheetsView*>(self);
    guarded([&] {
      view.describe();
      view.say_({});
    });
    gtk_widget_queue_draw(area);
    return FALSE;
  };
  handlers_.connect(area_, "draw", G_CALLBACK(+draw), this);
  handlers_.connect(area_, "size-allocate", G_CALLBACK(+allocated), this);
  handlers_.connect(area_, "style-updated", G_CALLBACK(+restyled), this);
  handlers_.connect(area_, "direction-changed", G_CALLBACK(+turned), this);
  handlers_.connect(area_, "query-tooltip", G_CALLBACK(+tooltip), this);
  handlers_.connect(area_, "key-press-event", G_CALLBACK(+key), this);
  handlers_.connect(area_, "button-press-event", G_CALLBACK(+pressed), this);
  handlers_.connect(area_, "focus-in-event", G_CALLBACK(+entered), this);
  handlers_.connect(area_, "focus-out-event", G_CALLBACK(+left), this);
}

void SheetsView::show(JobSheets job) {
  job_ = std::move(job);
  current_.reset();
  describe();
  layOut();
}

void SheetsView::describe() {
  AtkObject* accessible = gtk_widget_get_accessible(area_);
  atk_object_set_role(accessible, ATK_ROLE_IMAGE);
  atk_object_set_name(accessible, displayText(translated("Sheets")).c_str());
  atk_object_set_description(accessible, displayText(sentenceOf(job_)).c_str());
}

// Without a place in a window yet, the picture waits for it.
void SheetsView::layOut() {
  width_ = gtk_widget_get_allocated_width(area_);
  if (width_ <= 1) return;
  const double fontScale = fontScaleOf(area_);
  const double room = roomFor(fontScale);
  PictureOptions options;
  options.mostRows = kMostRows;
  options.rightToLeft = isRightToLeft();
  for (const double size : kSizes) {
    scale_ = size * fontScale;
    options.width = width_ / scale_;
    picture_ = pictureOf(job_, options);
    if (picture_.height * scale_ <= room) break;
  }
  fitScroller(room);
  if (current_ && *current_ >= picture_.items.size()) current_.reset();
  gtk_widget_queue_draw(area_);
}

// How high the picture may be without being scrolled, in pixels.
double SheetsView::roomFor(double fontScale) const {
  GdkWindow* window = gtk_widget_get_window(area_);
  if (window == nullptr) return kLeastHeight * fontScale;
  GdkRectangle screen{};
  gdk_monitor_get_workarea(
      gdk_display_get_monitor_at_window(gdk_window_get_display(window), window), &screen);
  const double spare = screen.height / fontScale - kHeightOfOthers;
  return std::clamp(spare, kLeastHeight, kBestHeight) * fontScale;
}

void SheetsView::fitScroller(double room) {
  const auto whole = [](double pixels) { return static_cast<int>(std::ceil(pixels)); };
  gtk_widget_set_size_request(area_, -1, whole(picture_.height * scale_));
  gtk_scrolled_window_set_min_content_height(GTK_SCROLLED_WINDOW(widget()), whole(room));
}

bool SheetsView::isRightToLeft() const {
  return gtk_widget_get_direction(area_) == GTK_TEXT_DIR_RTL;
}

void SheetsView::draw(cairo_t* context) const {
  cairo_save(context);
  // Rows that are shorter than the area begin at its right.
  if (isRightToLeft()) cairo_translate(context, width_ - picture_.width * scale_, 0);
  cairo_scale(context, scale_, scale_);
  paintSheets(context, area_, picture_);
  cairo_restore(context);
  if (gtk_widget_has_visible_focus(area_) != 0 && current_) drawFocus(context);
}

void SheetsView::drawFocus(cairo_t* context) const {
  const GdkRectangle place = placeOf(*current_);
  gtk_render_focus(gtk_widget_get_style_context(area_), context, place.x, place.y, place.width,
                   place.height);
}

GdkRectangle SheetsView::placeOf(std::size_t item) const {
  const PictureItem& shown = picture_.items.at(item);
  const double left = isRightToLeft() ? width_ - picture_.width * scale_ : 0;
  return {static_cast<int>(left + shown.x * scale_), static_cast<int>(shown.y * scale_),
          static_cast<int>(std::ceil(shown.width * scale_)),
          static_cast<int>(std::ceil(shown.height * scale_))};
}

std::optional<std::size_t> SheetsView::itemAt(double x, double y) const {
  for (std::size_t item = 0; item < picture_.items.size(); ++item) {
    const GdkRectangle place = placeOf(item);
    if (x >= place.x && x < place.x + place.width && y >= place.y && y < place.y + place.height)
      return item;
  }
  return std::nullopt;
}

bool SheetsView::showTooltip(int x, int y, bool byKeyboard, GtkTooltip* tooltip) const {
  const std::optional<std::size_t> item = byKeyboard ? current_ : itemAt(x, y);
  if (!item) return false;
  const GdkRectangle place = placeOf(*item);
  gtk_tooltip_set_tip_area(tooltip, &place);
  gtk_tooltip_set_text(tooltip, displayText(wordsOf(job_, picture_.items[*item])).c_str());
  return true;
}

// Whether the key is one that moves among the sheets.
bool SheetsView::moveBy(guint key) {
  if (picture_.items.empty()) return false;
  const std::size_t last = picture_.items.size() - 1;
  const std::size_t here = current_.value_or(0);
  const bool mirrored = isRightToLeft();
  if (key == GDK_KEY_Home || key == GDK_KEY_KP_Home) {
    goTo(0);
  } else if (key == GDK_KEY_End || key == GDK_KEY_KP_End) {
    goTo(last);
  } else if (key == GDK_KEY_Left || key == GDK_KEY_KP_Left) {
    goTo(mirrored ? std::min(here + 1, last) : here - std::min<std::size_t>(here, 1));
  } else if (key == GDK_KEY_Right || key == GDK_KEY_KP_Right) {
    goTo(mirrored ? here - std::min<std::size_t>(here, 1) : std::min(here + 1, last));
  } else {
    return false;
  }
  return true;
}

void SheetsView::goTo(std::optional<std::size_t> item) {
  if (!item || *item >= picture_.items.size()) return;
  current_ = item;
  const std::string words = wordsOf(job_, picture_.items[*item]);
  // A screen reader reads the new name of what has the focus.
  atk_object_set_name(gtk_widget_get_accessible(area_), displayText(words).c_str());
  const GdkRectangle place = placeOf(*item);
  GtkAdjustment* position = gtk_scrolled_window_get_vadjustment(GTK_SCROLLED_WINDOW(widget()));
  gtk_adjustment_clamp_page(position, place.y, place.y + place.height);
  gtk_widget_queue_draw(area_);
  say_(words);
}

}  // namespace publishing
