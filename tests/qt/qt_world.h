#pragma once
// The scripted fake platform of the tests around the real Qt surface, started as the
// program starts, with the places where the logic drew the cells.

#include <gtest/gtest.h>

#include <QRectF>
#include <QTest>

#include "board/board.h"
#include "core/app.h"
#include "core/record.h"
#include "core/records.h"
#include "files/project_file.h"
#include "qt/qt_surface.h"
#include "qt_test_app.h"
#include "test_support.h"

namespace tavlero::testing {

struct QtWorld : FakePlatform {
  QtWorld() { ensureQtApp(); }

  // As start-up leaves the canvas: the size of main's client area, a unit of 2 mm.
  void startCanvas() {
    canvas.setWidth(ui.clientWidth);
    canvas.setHeight(ui.clientHeight);
    zoomIn(app);
    zoomOut(app);
  }

  // Three cells (solid blue, green stripes, yellow) and two dashed links from the first.
  bool readBoard() { return readProject(app, dataPath("qt/board.tvl")); }

  // The box of a cell as it was last drawn, in pixels of the canvas.
  QRectF cellPixels(int16_t cell) const {
    Box box = readBox(app.store.sizeList.List(cell));
    return QRectF(QPointF(box.x1 * canvas.pixelsPerUnitX(), box.y1 * canvas.pixelsPerUnitY()),
                  QPointF(box.x2 * canvas.pixelsPerUnitX(), box.y2 * canvas.pixelsPerUnitY()));
  }

  QtSurface canvas{96};
  App app{canvas, platform()};
};

}  // namespace tavlero::testing
