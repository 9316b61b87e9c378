// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtSheetsPainter.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <string>

#include "shells/qt/QtText.h"

namespace publishing {
namespace {

using Kind = PictureShape::Kind;
using Anchor = PictureShape::Anchor;

QColor colourOfShape(const PictureShape& shape, const QWidget& widget) {
  if (shape.paint == PicturePaint::Caption) return widget.palette().color(QPalette::WindowText);
  const PictureColour colour = colourOf(shape.paint, shape.paper);
  return {colour.red, colour.green, colour.blue};
}

// Fonts have whole pixels as their size: texts are painted with a large one, made smaller.
void paintText(QPainter& painter, const QWidget& widget, const PictureShape& shape) {
  constexpr int kPaintedSize = 64;
  // The middle of digits and capitals lies about a third of the height above the base line.
  constexpr double kMiddle = 0.36;
  QFont font = widget.font();
  font.setPixelSize(kPaintedSize);
  const QString text = shownText(shape.text);
  const double width = QFontMetricsF(font).horizontalAdvance(text);
  const double part = shape.anchor == Anchor::Begin ? 0 : shape.anchor == Anchor::Middle ? 0.5 : 1;
  const PicturePoint at = shape.paths.front().front();
  painter.save();
  painter.translate(at.x, at.y);
  painter.scale(shape.size / kPaintedSize, shape.size / kPaintedSize);
  painter.setFont(font);
  painter.drawText(QPointF(-part * width, kMiddle * kPaintedSize), text);
  painter.restore();
}

void paintShape(QPainter& painter, const QWidget& widget, const PictureShape& shape) {
  const QColor colour = colourOfShape(shape, widget);
  if (shape.kind == Kind::Area) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
  } else {
    painter.setPen(QPen(colour, shape.size, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
  }
  if (shape.kind == Kind::Text) return paintText(painter, widget, shape);
  for (const auto& path : shape.paths) {
    QPolygonF points;
    for (const PicturePoint& point : path)
      points << QPointF(point.x, point.y);
    if (shape.kind == Kind::Area) {
      painter.drawPolygon(points);
    } else {
      painter.drawPolyline(points);
    }
  }
}

}  // namespace

void paintSheets(QPainter& painter, const QWidget& widget, const SheetPicture& picture) {
  painter.setRenderHint(QPainter::Antialiasing);
  for (const PictureShape& shape : picture.shapes)
    paintShape(painter, widget, shape);
}

}  // namespace publishing
