// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PaintedArea.h"

#include <pango/pangocairo.h>

#include "shells/Guarded.h"

namespace publishing {
namespace {

constexpr double kPointsInAnInch = 72;

}  // namespace

PaintedArea::PaintedArea(Owner& owner)
    : owner_(owner),
      area_(shareGObject(GTK_WIDGET(g_object_new(GTK_TYPE_DRAWING_AREA, "accessible-role",
                                                 GTK_ACCESSIBLE_ROLE_IMG, nullptr)))) {
  gtk_widget_set_focusable(widget(), TRUE);
  connect();
}

PaintedArea::~PaintedArea() {
  gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(widget()), nullptr, nullptr, nullptr);
}

void PaintedArea::connect() {
  const auto draw = [](GtkDrawingArea*, cairo_t* context, int, int, gpointer self) {
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.paint(context); });
  };
  const auto resized = [](GtkDrawingArea*, int, int, gpointer self) {
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.resized(); });
  };
  // Widgets tell nobody of a new font; colours are asked for at each painting.
  const auto restyled = [](GObject*, GParamSpec*, gpointer self) {
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.restyled(); });
  };
  const auto pressedKey = [](GtkEventControllerKey*, guint key, guint, GdkModifierType,
                             gpointer self) -> gboolean {
    bool isDone = false;
    guarded([&] { isDone = static_cast<PaintedArea*>(self)->owner_.keyPressed(key); });
    return isDone ? TRUE : FALSE;
  };
  const auto pressed = [](GtkGestureClick*, int, double x, double y, gpointer self) {
    auto& area = *static_cast<PaintedArea*>(self);
    gtk_widget_grab_focus(area.widget());
    guarded([&] { area.owner_.pressedAt(x, y); });
  };
  const auto focus = [](GtkWidget* area, GParamSpec*, gpointer self) {
    const bool hasFocus = gtk_widget_has_focus(area) != 0;
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.focusChanged(hasFocus); });
  };
  gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(widget()), +draw, this, nullptr);
  handlers_.connect(widget(), "resize", G_CALLBACK(+resized), this);
  GtkSettings* settings = gtk_widget_get_settings(widget());
  for (const char* setting : {"notify::gtk-font-name", "notify::gtk-xft-dpi"})
    handlers_.connect(settings, setting, G_CALLBACK(+restyled), this, G_CONNECT_AFTER);
  GtkEventController* keys = gtk_event_controller_key_new();
  handlers_.connect(keys, "key-pressed", G_CALLBACK(+pressedKey), this);
  gtk_widget_add_controller(widget(), keys);
  GtkGesture* click = gtk_gesture_click_new();
  handlers_.connect(click, "pressed", G_CALLBACK(+pressed), this);
  gtk_widget_add_controller(widget(), GTK_EVENT_CONTROLLER(click));
  handlers_.connect(widget(), "notify::has-focus", G_CALLBACK(+focus), this);
}

int PaintedArea::width() const {
  return gtk_widget_get_allocated_width(widget());
}

double PaintedArea::fontSize() const {
  PangoContext* context = gtk_widget_get_pango_context(widget());
  const PangoFontDescription* font = pango_context_get_font_description(context);
  const double size = static_cast<double>(pango_font_description_get_size(font)) / PANGO_SCALE;
  if (pango_font_description_get_size_is_absolute(font) != 0) return size;
  return size * pango_cairo_context_get_resolution(context) / kPointsInAnInch;
}

int PaintedArea::screenHeight() const {
  GtkNative* native = gtk_widget_get_native(widget());
  GdkSurface* surface = native != nullptr ? gtk_native_get_surface(native) : nullptr;
  GdkMonitor* monitor = surface != nullptr ? gdk_display_get_monitor_at_surface(
                                                 gdk_surface_get_display(surface), surface)
                                           : nullptr;
  if (monitor == nullptr) return 0;
  GdkRectangle screen{};
  gdk_monitor_get_geometry(monitor, &screen);
  return screen.height;
}

void PaintedArea::setName(const std::string& name) {
  gtk_accessible_update_property(GTK_ACCESSIBLE(widget()), GTK_ACCESSIBLE_PROPERTY_LABEL,
                                 name.c_str(), -1);
}

void PaintedArea::setDescription(const std::string& description) {
  gtk_accessible_update_property(GTK_ACCESSIBLE(widget()), GTK_ACCESSIBLE_PROPERTY_DESCRIPTION,
                                 description.c_str(), -1);
}

void PaintedArea::paintFocus(cairo_t* context, const GdkRectangle& place) const {
  gtk_render_focus(gtk_widget_get_style_context(widget()), context, place.x, place.y, place.width,
                   place.height);
}

}  // namespace publishing
