#include "editing/gestures.h"

#include <string>

#include "board/board.h"
#include "board/compress.h"
#include "board/links.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "core/records.h"
#include "editing/hit_test.h"

namespace tavlero {

namespace {

constexpr int16_t kLeftButton = 1;
constexpr int16_t kRightButton = 2;
constexpr int16_t kShiftKey = 1;

// Positions are read as the text gives them and only the result is rounded to a float.
double storedPosition(const ProjectStore& store, std::string_view field) {
  return numberField(store.itemList.List(store.selectedCell), field);
}

void selectCell(App& app, int16_t hit) {
  ProjectStore& store = app.store;
  int16_t previous = store.selectedCell;
  store.selectedCell = hit;
  // Only what changes colour is painted again; the rest of the board stays as it was.
  drawCell(app, store.selectedCell);
  if (previous != -1) drawCell(app, previous);
  int16_t previousLink = store.selectedLink;
  store.selectedLink = -1;
  if (previousLink != -1) drawLink(app, previousLink);

  // The rectangle takes the size the cell had at its last drawing, measured from its
  // stored position; it stays hidden until the pointer moves with the button held.
  DemoRectangle& rect = app.demoRectangle;
  rect.Left = toSingle(storedPosition(store, key::positionX));
  rect.Top = toSingle(storedPosition(store, key::positionY));
  const std::string& geometry = store.sizeList.List(store.selectedCell);
  rect.Width = toSingle(numberField(geometry, key::X2) - rect.Left);
  rect.Height = toSingle(numberField(geometry, key::Y2) - rect.Top);
  app.platform.ui.demoRectangleChanged();
}

void linkToCell(App& app, int16_t hit) {
  ProjectStore& store = app.store;
  addLink(app, store.selectedCell, hit);
  // Drawn also when nothing was added: a refused link repaints the link that stands last.
  if (store.linkList.ListCount() > 0) drawLink(app, static_cast<int16_t>(store.linkList.ListCount() - 1));
}

void selectLinkAt(App& app, float X, float Y) {
  ProjectStore& store = app.store;
  int16_t previousCell = store.selectedCell;
  store.selectedCell = -1;
  if (previousCell != -1) drawCell(app, previousCell);
  int16_t previousLink = store.selectedLink;
  store.selectedLink = findLinkAt(app, X, Y);
  if (store.selectedLink != -1) drawLink(app, store.selectedLink);
  if (previousLink != -1) drawLink(app, previousLink);
}

std::string mainCaption(const ProjectStore& store, float X, float Y) {
  return "Tavlero: " + store.programName + " (" + utf8ToCp1252(store.projectFileName) +
         ") (X:" + numberToText(toInteger(X)) + "   Y:" + numberToText(toInteger(Y)) + ")";
}

void dropCell(App& app, float X, float Y) {
  ProjectStore& store = app.store;
  Surface& canvas = app.canvas;
  float newX = toSingle(X + storedPosition(store, key::positionX) - store.dragStartX);
  float newY = toSingle(Y + storedPosition(store, key::positionY) - store.dragStartY);
  store.itemList.setList(store.selectedCell, setField(store.itemList.List(store.selectedCell), key::positionX,
                                                      numberToText(newX)));
  store.itemList.setList(store.selectedCell, setField(store.itemList.List(store.selectedCell), key::positionY,
                                                      numberToText(newY)));
  store.markChanged();

  // No cell may stand at a negative place: the whole board moves so that the dropped
  // cell ends 10 units from the edge, and the canvas moves the other way to keep it in view.
  if (newX < 0) {
    shiftBoard(app, 10 - newX, 0);
    canvas.Move(newX + 10, canvas.Top());
  }
  if (newY < 0) {
    shiftBoard(app, 0, 10 - newY);
    canvas.Move(canvas.Left(), newY + 10);
  }
  app.platform.ui.DoEvents();
  app.demoRectangle.Visible = false;
  app.platform.ui.demoRectangleChanged();
  redrawBoard(app);
  store.dragStartX = 0;
  store.dragStartY = 0;
}

}  // namespace

void canvas_MouseDown(App& app, int16_t Button, int16_t Shift, float X, float Y) {
  ProjectStore& store = app.store;
  store.dragStartX = X;
  store.dragStartY = Y;
  int16_t hit = findCellAt(app, X, Y);
  // Button and Shift are compared as whole values: left with right, or Shift with Ctrl,
  // is none of the cell cases.
  if (Button == kLeftButton && Shift == 0 && hit != -1) {
    selectCell(app, hit);
  } else if (Button == kLeftButton && Shift == kShiftKey && hit != -1 && store.selectedCell != -1) {
    linkToCell(app, hit);
  } else {
    selectLinkAt(app, X, Y);
  }
}

void canvas_MouseMove(App& app, int16_t Button, int16_t Shift, float X, float Y) {
  ProjectStore& store = app.store;
  store.lastMouseX = toLong(X);
  store.lastMouseY = toLong(Y);
  app.platform.ui.setCaption(mainCaption(store, X, Y));

  if (Button == kLeftButton && store.selectedCell != -1) {
    // Only the rectangle follows the pointer; the board is left alone until the drop.
    DemoRectangle& rect = app.demoRectangle;
    rect.Top = toSingle(storedPosition(store, key::positionY) - store.dragStartY + Y);
    rect.Left = toSingle(storedPosition(store, key::positionX) - store.dragStartX + X);
    rect.Visible = true;
    app.platform.ui.demoRectangleChanged();
  }
  if (Button == kRightButton) {
    // X is measured on the moving canvas, so X - dragStartX is how far the pointer has
    // left the point it grabbed; the sum mixes units as the pan always has.
    app.platform.ui.setMousePointer(kPointerSizeAll);
    Surface& canvas = app.canvas;
    int16_t left = toInteger(static_cast<double>(canvas.Left()) + X - store.dragStartX);
    int16_t top = toInteger(static_cast<double>(canvas.Top()) + Y - store.dragStartY);
    canvas.Move(left, top);
    app.platform.ui.refreshMain();
    app.platform.ui.DoEvents();
  }
}

void canvas_MouseUp(App& app, int16_t Button, int16_t Shift, float X, float Y) {
  if (app.demoRectangle.Visible && app.store.selectedCell != -1) dropCell(app, X, Y);
  app.platform.ui.setMousePointer(kPointerDefault);
}

}  // namespace tavlero
