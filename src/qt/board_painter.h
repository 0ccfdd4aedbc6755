#pragma once
// Painting of the canvas's display list with QPainter: the visible part for the screen,
// the whole board for the picture and the clipboard.

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <cstdint>

#include "platform/surface.h"

namespace tavlero {

// A colour number: red + 256 x green + 65536 x blue.
QColor colourOf(int32_t colour);

// The background of the board: the window background colour.
QColor boardBackground();

// How board units land on the device: pixels per unit, and the resolution of the fonts.
struct BoardScale {
  double x;
  double y;
  double dpi;
};

// Paints the operations that meet area (device pixels, board origin at 0, 0), in
// drawing order. The background is left to the caller.
void paintBoard(QPainter& painter, const DisplayList& image, const BoardScale& scale, const QRectF& area);

// The whole retained picture at the surface's size. A null image, with a Norwegian
// reason in error, when the picture would be too large to make.
QImage renderBoardImage(const Surface& canvas, QString* error);

}  // namespace tavlero
