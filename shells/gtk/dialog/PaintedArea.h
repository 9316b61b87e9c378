// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <gtk/gtk.h>

#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"

namespace publishing {

// A part of a window that its owner paints, and that can have the keyboard's focus. Screen readers
// take it for an image.
class PaintedArea {
 public:
  // What the owner does; the toolkit sees nothing that it throws.
  class Owner {
   public:
    virtual void paint(cairo_t* context) = 0;

    virtual void resized() = 0;

    // Colours and fonts may be others now.
    virtual void restyled() = 0;

    // A place in screen pixels was clicked; the area has the focus.
    virtual void pressedAt(double x, double y) = 0;

    // Whether the key did something.
    virtual bool keyPressed(guint key) = 0;
    virtual void focusChanged(bool hasFocus) = 0;

   protected:
    ~Owner() = default;
  };

  // `owner` must outlive the area.
  explicit PaintedArea(Owner& owner);
  PaintedArea(const PaintedArea&) = delete;
  PaintedArea& operator=(const PaintedArea&) = delete;
  ~PaintedArea();

  // Belongs to the window that it is in.
  [[nodiscard]] GtkWidget* widget() const { return area_.get(); }

  // In pixels; 1 or less before it has a place in a window.
  [[nodiscard]] int width() const;

  // Of its texts, in pixels.
  [[nodiscard]] double fontSize() const;

  // Of what windows may take of the screen that it is on, in pixels; 0 before it is on one.
  [[nodiscard]] int screenHeight() const;

  // For screen readers.
  void setName(const std::string& name);
  void setDescription(const std::string& description);

  // The frame of what has the focus; only while the area is painted.
  void paintFocus(cairo_t* context, const GdkRectangle& place) const;

 private:
  void connect();

  Owner& owner_;
  GObjectPtr<GtkWidget> area_;
  SignalHandlers handlers_;
};

}  // namespace publishing
