// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPainter>
#include <QWidget>

#include "sheets/SheetPicture.h"

namespace publishing {

// Paints the picture in units of the painter, with the widget's font and its colour of texts.
void paintSheets(QPainter& painter, const QWidget& widget, const SheetPicture& picture);

}  // namespace publishing
