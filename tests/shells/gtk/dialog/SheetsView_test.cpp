// SPDX-License-Identifier: Apache-2.0
// The picture of the sheets in a window.
#include "shells/gtk/dialog/SheetsView.h"

#include <algorithm>
#include <array>
#include <functional>

#include <gdk/gdkkeysyms.h>
#include <gtest/gtest.h>

#include "base/GlibHandles.h"
#include "shells/gtk/Toolkit.h"
#include "tests/printing/SheetJobs.h"
#include "tests/support/GtkGestures.h"
#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

using Pixel = std::array<int, 3>;

const Options kReport = kTwoSided + covers("2", "1") + inserts("0", "5,8");

class SheetsViewTest : public testing::Test {
 protected:
  SheetsViewTest() : window(gestures::newWindow()) {
    gtk_window_set_default_size(GTK_WINDOW(window.get()), 600, 300);
    gestures::setContent(GTK_WINDOW(window.get()), view.widget());
    toolkit::showWithChildren(window.get());
    waitUntil([this] { return gtk_widget_get_allocated_width(view.area()) > 1; });
  }
  ~SheetsViewTest() override {
    toolkit::destroyWindow(GTK_WINDOW(window.get()));
    GtkStage::settle();
  }

  static void waitUntil(const std::function<bool()>& condition) {
    const gint64 end = g_get_monotonic_time() + 10 * G_USEC_PER_SEC;
    while (!condition() && g_get_monotonic_time() < end) {
      GtkStage::settle();
      g_usleep(1000);
    }
    EXPECT_TRUE(condition());
  }

  void show(const Options& options, std::optional<int> pages) {
    view.show(sheetsOf(options, pages));
    GtkStage::settle();
  }

  void focus() {
    leave();
    gtk_window_present(GTK_WINDOW(window.get()));
    gtk_widget_grab_focus(view.area());
    waitUntil([this] { return gtk_widget_has_focus(view.area()) != 0; });
  }

  void leave() {
    gtk_window_set_focus(GTK_WINDOW(window.get()), nullptr);
    waitUntil([this] { return gtk_widget_has_focus(view.area()) == 0; });
  }

  bool press(guint key) { return gestures::pressKey(view.area(), key); }

  // Where the middle of an item is in the area.
  [[nodiscard]] PicturePoint middleOf(std::size_t item) const {
    const PictureItem& shown = view.sheets().picture().items.at(item);
    return {(shown.x + shown.width / 2) * view.sheets().scale(),
            (shown.y + shown.height / 2) * view.sheets().scale()};
  }

  // What is painted, as red, green and blue; places without paint are black.
  [[nodiscard]] std::vector<Pixel> painted() const {
    const int width = gtk_widget_get_allocated_width(view.area());
    const int height = gtk_widget_get_allocated_height(view.area());
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* context = cairo_create(surface);
    gestures::draw(view.area(), context);
    cairo_destroy(context);
    cairo_surface_flush(surface);
    std::vector<Pixel> pixels;
    for (int y = 0; y < height; ++y) {
      const unsigned char* row =
          cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
      for (int x = 0; x < width; ++x)
        pixels.push_back({row[4 * x + 2], row[4 * x + 1], row[4 * x]});
    }
    cairo_surface_destroy(surface);
    return pixels;
  }

  static bool has(const std::vector<Pixel>& pixels, PicturePaper paper) {
    const PictureColour colour = colourOf(PicturePaint::Paper, paper);
    return std::count(pixels.begin(), pixels.end(), Pixel{colour.red, colour.green, colour.blue}) >
           50;
  }

  std::string said;
  SheetsView view{[this](const std::string& words) { said = words; }};
  GObjectPtr<GtkWidget> window;
};

TEST_F(SheetsViewTest, EveryPaperIsPaintedInItsColour) {
  show(kTwoSided, 8);
  EXPECT_FALSE(has(painted(), PicturePaper::Cover));
  EXPECT_TRUE(has(painted(), PicturePaper::Body));
  show(kReport, 10);
  EXPECT_TRUE(has(painted(), PicturePaper::Cover));
  EXPECT_TRUE(has(painted(), PicturePaper::Insert));
}

TEST_F(SheetsViewTest, RowsAreAsWideAsTheWindow) {
  show(kOneSided + inserts("1", "2,4,6,8,10,12,14,16,18"), 20);
  const int width = gtk_widget_get_allocated_width(view.area());
  EXPECT_LE(view.sheets().picture().width * view.sheets().scale(), width);
  EXPECT_GT(view.sheets().picture().items.back().y, view.sheets().picture().items.front().y);
  gestures::resize(GTK_WINDOW(window.get()), 1300, 300);
  waitUntil([this] { return gtk_widget_get_allocated_width(view.area()) > 1000; });
  EXPECT_EQ(view.sheets().picture().items.back().y, view.sheets().picture().items.front().y);
}

TEST_F(SheetsViewTest, WhatHasNoRoomIsScrolledOrLeftOut) {
  std::string pages;
  for (int page = 2; page < 1000; ++page)
    pages += std::to_string(page) + ",";
  show(kTwoSided + inserts("0", pages), 1000);
  EXPECT_LE(gtk_widget_get_allocated_height(view.widget()), 320);
  EXPECT_TRUE(std::any_of(view.sheets().picture().items.begin(),
                          view.sheets().picture().items.end(),
                          [](const auto& item) { return item.kind == PictureItem::Kind::Gap; }));
}

TEST_F(SheetsViewTest, PointerFindsTheSheets) {
  show(kReport, 10);
  for (std::size_t item = 0; item < view.sheets().picture().items.size(); ++item) {
    const PicturePoint middle = middleOf(item);
    EXPECT_EQ(view.sheets().itemAt(middle.x, middle.y), item);
  }
  EXPECT_EQ(view.sheets().itemAt(1, 1), std::nullopt);
}

TEST_F(SheetsViewTest, KeysGoFromSheetToSheetAndSayThem) {
  show(kReport, 10);
  focus();
  EXPECT_EQ(said, "Sheet 1: Leather Grain \u201cGröße A\u201d, front: page 1, back: blank");
  EXPECT_TRUE(press(GDK_KEY_Right));
  EXPECT_EQ(said, "Sheet 2: Plain Paper (Tray 1), front: page 2, back: page 3");
  EXPECT_EQ(gestures::faultOfAccessibleName(view.area(), said), "");
  EXPECT_TRUE(press(GDK_KEY_End));
  EXPECT_EQ(view.sheets().current(), view.sheets().picture().items.size() - 1);
  EXPECT_TRUE(press(GDK_KEY_Right));
  EXPECT_EQ(view.sheets().current(), view.sheets().picture().items.size() - 1);
  EXPECT_TRUE(press(GDK_KEY_Home));
  EXPECT_TRUE(press(GDK_KEY_Left));
  EXPECT_EQ(view.sheets().current(), 0U);
  EXPECT_FALSE(press(GDK_KEY_Tab));
  leave();
  EXPECT_EQ(said, "");
}

TEST_F(SheetsViewTest, WithoutSheetsNoKeyDoesAnything) {
  show(kReport, 0);
  focus();
  EXPECT_FALSE(press(GDK_KEY_Right));
  EXPECT_EQ(said, "");
}

TEST_F(SheetsViewTest, RightToLeftTheFirstSheetIsAtTheRight) {
  gtk_widget_set_direction(view.area(), GTK_TEXT_DIR_RTL);
  show(kReport, 10);
  EXPECT_GT(view.sheets().picture().items.front().x, view.sheets().picture().items.back().x);
  const int width = gtk_widget_get_allocated_width(view.area());
  EXPECT_EQ(view.sheets().itemAt(width - 40, middleOf(0).y), 0U);
  focus();
  press(GDK_KEY_Left);
  EXPECT_EQ(view.sheets().current(), 1U);
  press(GDK_KEY_Right);
  EXPECT_EQ(view.sheets().current(), 0U);
}

TEST_F(SheetsViewTest, ScreenReadersGetAnImageThatIsASentence) {
  show(kReport, 10);
  EXPECT_TRUE(gestures::isAccessibleImage(view.area()));
  EXPECT_EQ(gestures::faultOfAccessibleName(view.area(), "Picture of the sheets"), "");
  EXPECT_EQ(
      gestures::faultOfAccessibleDescription(
          view.area(),
          "Front and back cover on Leather Grain \u201cGröße A\u201d, page 1 outside; sheets of "
          "Thick Paper (épais) before pages 5 and 8. 10 sheets in all."),
      "");
}

TEST_F(SheetsViewTest, LargeTextsMakeLargeSheets) {
  show(kReport, 10);
  const double usual = view.sheets().scale();
  GtkSettings* settings = gtk_widget_get_settings(window.get());
  gint before = 0;
  g_object_get(settings, "gtk-xft-dpi", &before, nullptr);
  g_object_set(settings, "gtk-xft-dpi", 2 * 96 * PANGO_SCALE, nullptr);
  waitUntil([this, usual] { return view.sheets().scale() > 1.5 * usual; });
  EXPECT_LE(view.sheets().picture().width * view.sheets().scale(),
            gtk_widget_get_allocated_width(view.area()));
  g_object_set(settings, "gtk-xft-dpi", before, nullptr);
  waitUntil([this, usual] { return view.sheets().scale() == usual; });
}

TEST_F(SheetsViewTest, HighContrastNeedsNoColour) {
  GtkSettings* settings = gtk_widget_get_settings(window.get());
  gchar* name = nullptr;
  g_object_get(settings, "gtk-theme-name", &name, nullptr);
  const GlibText usual(name);
  g_object_set(settings, "gtk-theme-name", "HighContrast", nullptr);
  show(kReport, 10);
  EXPECT_FALSE(has(painted(), PicturePaper::Cover));
  EXPECT_FALSE(has(painted(), PicturePaper::Insert));
  EXPECT_TRUE(has(painted(), PicturePaper::Body));
  g_object_set(settings, "gtk-theme-name", usual.get(), nullptr);
}

}  // namespace
}  // namespace publishing
