// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PaintedArea.h"

#include "shells/Guarded.h"

namespace publishing {
namespace {

constexpr double kPointsInAnInch = 72;

}  // namespace

PaintedArea::PaintedArea(Owner& owner)
    : owner_(owner), area_(shareGObject(gtk_drawing_area_new())) {
  gtk_widget_set_can_focus(widget(), TRUE);
  gtk_widget_add_events(widget(), GDK_BUTTON_PRESS_MASK);
  atk_object_set_role(gtk_widget_get_accessible(widget()), ATK_ROLE_IMAGE);
  connect();
}

PaintedArea::~PaintedArea() = default;

void PaintedArea::connect() {
  const auto draw = [](GtkWidget*, cairo_t* context, gpointer self) -> gboolean {
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.paint(context); });
    return FALSE;
  };
  const auto allocated = [](GtkWidget*, GdkRectangle*, gpointer self) {
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.resized(); });
  };
  const auto restyled = [](GtkWidget*, gpointer self) {
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.restyled(); });
  };
  const auto key = [](GtkWidget*, GdkEventKey* event, gpointer self) -> gboolean {
    bool isDone = false;
    guarded([&] { isDone = static_cast<PaintedArea*>(self)->owner_.keyPressed(event->keyval); });
    return isDone ? TRUE : FALSE;
  };
  const auto pressed = [](GtkWidget* area, GdkEventButton* event, gpointer self) -> gboolean {
    gtk_widget_grab_focus(area);
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.pressedAt(event->x, event->y); });
    return TRUE;
  };
  const auto focus = [](GtkWidget*, GdkEventFocus* event, gpointer self) -> gboolean {
    guarded([&] { static_cast<PaintedArea*>(self)->owner_.focusChanged(event->in != 0); });
    return FALSE;
  };
  handlers_.connect(widget(), "draw", G_CALLBACK(+draw), this);
  handlers_.connect(widget(), "size-allocate", G_CALLBACK(+allocated), this);
  handlers_.connect(widget(), "style-updated", G_CALLBACK(+restyled), this);
  handlers_.connect(widget(), "key-press-event", G_CALLBACK(+key), this);
  handlers_.connect(widget(), "button-press-event", G_CALLBACK(+pressed), this);
  handlers_.connect(widget(), "focus-in-event", G_CALLBACK(+focus), this);
  handlers_.connect(widget(), "focus-out-event", G_CALLBACK(+focus), this);
}

int PaintedArea::width() const {
  return gtk_widget_get_allocated_width(widget());
}

double PaintedArea::fontSize() const {
  PangoFontDescription* font = nullptr;
  GtkStyleContext* style = gtk_widget_get_style_context(widget());
  gtk_style_context_get(style, gtk_style_context_get_state(style), GTK_STYLE_PROPERTY_FONT, &font,
                        nullptr);
  double size = static_cast<double>(pango_font_description_get_size(font)) / PANGO_SCALE;
  if (pango_font_description_get_size_is_absolute(font) == 0)
    size *= gdk_screen_get_resolution(gtk_widget_get_screen(widget())) / kPointsInAnInch;
  pango_font_description_free(font);
  return size;
}

int PaintedArea::screenHeight() const {
  GdkWindow* window = gtk_widget_get_window(widget());
  if (window == nullptr) return 0;
  GdkRectangle screen{};
  gdk_monitor_get_workarea(
      gdk_display_get_monitor_at_window(gdk_window_get_display(window), window), &screen);
  return screen.height;
}

void PaintedArea::setName(const std::string& name) {
  atk_object_set_name(gtk_widget_get_accessible(widget()), name.c_str());
}

void PaintedArea::setDescription(const std::string& description) {
  atk_object_set_description(gtk_widget_get_accessible(widget()), description.c_str());
}

void PaintedArea::paintFocus(cairo_t* context, const GdkRectangle& place) const {
  gtk_render_focus(gtk_widget_get_style_context(widget()), context, place.x, place.y, place.width,
                   place.height);
}

}  // namespace publishing
