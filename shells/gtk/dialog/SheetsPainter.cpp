// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/SheetsPainter.h"

#include <string>

#include "base/GlibHandles.h"
#include "shells/DisplayText.h"
#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

using Kind = PictureShape::Kind;
using Anchor = PictureShape::Anchor;

// By the theme's name; GTK 4 calls its own the second way.
bool isHighContrast(const char* theme) {
  return g_str_has_prefix(theme, "HighContrast") != 0 || g_str_has_prefix(theme, "Default-hc") != 0;
}

bool hasHighContrast(GtkWidget* widget) {
  if (const gchar* forced = g_getenv("GTK_THEME")) return isHighContrast(forced);
  gchar* name = nullptr;
  g_object_get(gtk_widget_get_settings(widget), "gtk-theme-name", &name, nullptr);
  const GlibText theme(name);
  return name != nullptr && isHighContrast(name);
}

class Painter {
 public:
  Painter(cairo_t* context, GtkWidget* widget)
      : context_(context),
        isHighContrast_(hasHighContrast(widget)),
        layout_(gtk_widget_create_pango_layout(widget, nullptr)),
        caption_(toolkit::textColourOf(widget)) {
    const PangoFontDescription* font =
        pango_context_get_font_description(gtk_widget_get_pango_context(widget));
    font_ = font != nullptr ? pango_font_description_copy(font) : pango_font_description_new();
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  }
  Painter(const Painter&) = delete;
  Painter& operator=(const Painter&) = delete;
  ~Painter() { pango_font_description_free(font_); }

  void paint(const PictureShape& shape) {
    setColour(shape);
    if (shape.kind == Kind::Text) return paintText(shape);
    for (const auto& path : shape.paths)
      trace(path);
    if (shape.kind == Kind::Area) {
      cairo_fill(context_);
    } else {
      cairo_set_line_width(context_, shape.size);
      cairo_stroke(context_);
    }
  }

 private:
  void setColour(const PictureShape& shape) {
    if (shape.paint == PicturePaint::Caption) return gdk_cairo_set_source_rgba(context_, &caption_);
    if (isHighContrast_) {
      const bool isInk = shape.paint == PicturePaint::Edge ||
                         shape.paint == PicturePaint::Pattern ||
                         shape.paint == PicturePaint::Number;
      const double grey = isInk ? 0 : 1;
      return cairo_set_source_rgb(context_, grey, grey, grey);
    }
    const PictureColour colour = colourOf(shape.paint, shape.paper);
    cairo_set_source_rgb(context_, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0);
  }

  void trace(const std::vector<PicturePoint>& path) {
    cairo_new_sub_path(context_);
    for (const PicturePoint& point : path)
      cairo_line_to(context_, point.x, point.y);
  }

  // The middle of digits and capitals lies about a third of the height above the base line.
  void paintText(const PictureShape& shape) {
    constexpr double kMiddle = 0.36;
    pango_font_description_set_absolute_size(font_, shape.size * PANGO_SCALE);
    pango_layout_set_font_description(layout_.get(), font_);
    pango_layout_set_text(layout_.get(), displayText(shape.text).c_str(), -1);
    int width = 0;
    pango_layout_get_size(layout_.get(), &width, nullptr);
    const double part = shape.anchor == Anchor::Begin    ? 0
                        : shape.anchor == Anchor::Middle ? 0.5
                                                         : 1;
    const PicturePoint at = shape.paths.front().front();
    const double base = static_cast<double>(pango_layout_get_baseline(layout_.get())) / PANGO_SCALE;
    cairo_move_to(context_, at.x - part * width / PANGO_SCALE, at.y + kMiddle * shape.size - base);
    pango_cairo_show_layout(context_, layout_.get());
  }

  cairo_t* context_;
  bool isHighContrast_;
  GObjectPtr<PangoLayout> layout_;
  GdkRGBA caption_;
  PangoFontDescription* font_ = nullptr;
};

}  // namespace

void paintSheets(cairo_t* context, GtkWidget* widget, const SheetPicture& picture) {
  Painter painter(context, widget);
  for (const PictureShape& shape : picture.shapes)
    painter.paint(shape);
}

}  // namespace publishing
