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
#include "shells/gtk/Toolkit.h"
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
  job_ = std::move(job);
  current_.reset();
  describe();
  layOut();
}

void SheetsView::describe() {
  area_.setName(displayText(translated("Sheets")));
  area_.setDescription(displayText(sentenceOf(job_)));
}

void SheetsView::resized() {
  if (area_.width() != width_) layOut();
}

// Without a place in a window yet, the picture waits for it.
void SheetsView::layOut() {
  width_ = area_.width();
  if (width_ <= 1) return;
  // Larger texts make larger sheets.
  const double fontScale = std::clamp(area_.fontSize() / kUsualFont, 1.0, kLargestScale);
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
  gtk_widget_queue_draw(area());
}

// How high the picture may be without being scrolled, in pixels.
double SheetsView::roomFor(double fontScale) const {
  const double spare = area_.screenHeight() / fontScale - kHeightOfOthers;
  return std::clamp(spare, kLeastHeight, kBestHeight) * fontScale;
}

void SheetsView::fitScroller(double room) {
  const auto whole = [](double pixels) { return static_cast<int>(std::ceil(pixels)); };
  gtk_widget_set_size_request(area(), -1, whole(picture_.height * scale_));
  gtk_scrolled_window_set_min_content_height(GTK_SCROLLED_WINDOW(widget()), whole(room));
}

bool SheetsView::isRightToLeft() const {
  return gtk_widget_get_direction(area()) == GTK_TEXT_DIR_RTL;
}

void SheetsView::paint(cairo_t* context) {
  cairo_save(context);
  // Rows that are shorter than the area begin at its right.
  if (isRightToLeft()) cairo_translate(context, width_ - picture_.width * scale_, 0);
  cairo_scale(context, scale_, scale_);
  paintSheets(context, area(), picture_);
  cairo_restore(context);
  if (gtk_widget_has_visible_focus(area()) != 0 && current_)
    area_.paintFocus(context, placeOf(*current_));
}

void SheetsView::focusChanged(bool hasFocus) {
  if (hasFocus) return goTo(current_.value_or(0));
  describe();
  say_({});
  gtk_widget_queue_draw(area());
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
bool SheetsView::keyPressed(guint key) {
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
  area_.setName(displayText(words));
  const GdkRectangle place = placeOf(*item);
  GtkAdjustment* position = gtk_scrolled_window_get_vadjustment(GTK_SCROLLED_WINDOW(widget()));
  gtk_adjustment_clamp_page(position, place.y, place.y + place.height);
  gtk_widget_queue_draw(area());
  say_(words);
}

}  // namespace publishing
