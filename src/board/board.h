#pragma once
// Painting of cells and links, the whole-board redraw and the zoom.

#include <cstdint>
#include <string>

#include "core/app.h"

namespace tavlero {

// Paints cell index and writes its geometry record into sizeList.
void drawCell(App& app, int16_t index);

// Paints link index between its cells and writes its geometry record into
// linkSizeList; blanks the link when one of its cells is gone.
void drawLink(App& app, int16_t index);

// Whether any cell has the name; from the last redraw's names while the cells stand.
bool cellNamed(const App& app, const std::string& name);

// Side code of the target seen from the source: 0 above, 1 right, 2 below, 3 left.
int16_t linkDirection(float sourceX, float sourceY, float targetX, float targetY);

void redrawBoard(App& app);
void zoomIn(App& app);
void zoomOut(App& app);
void resetview_Click(App& app);

}  // namespace tavlero
