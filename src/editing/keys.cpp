#include "editing/keys.h"

#include <array>
#include <string>

#include "board/board.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "core/records.h"
#include "editing/method_dialog.h"
#include "export/info_view.h"

namespace tavlero {

namespace {

constexpr int16_t kKeyF5 = 116;
constexpr int16_t kKeyDelete = 46;
constexpr int16_t kKeyDigit1 = 49;
constexpr int16_t kShiftNone = 0;
constexpr int16_t kShiftCtrl = 2;
constexpr int32_t kWhite = 16777215;

// Colour numbers of the keys 1 to 9.
constexpr std::array<int32_t, 9> kColors = {12632256, 8421504,  16711680, 65280, 16776960,
                                            255,      16711935, 65535,    kWhite};
// Fill styles of Ctrl+1 to Ctrl+7; 1, transparent, is not offered.
constexpr std::array<int32_t, 7> kFillStyles = {0, 2, 3, 4, 5, 6, 7};

// Windows-1252 letters in the two cases; a character without a partner stays itself.
unsigned char upperCase(unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 32);
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 32);
  if (c == 0x9A || c == 0x9C || c == 0x9E) return static_cast<unsigned char>(c - 16);
  if (c == 0xFF) return 0x9F;
  return c;
}

unsigned char lowerCase(unsigned char c) {
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 32);
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<unsigned char>(c + 32);
  if (c == 0x8A || c == 0x8C || c == 0x8E) return static_cast<unsigned char>(c + 16);
  if (c == 0x9F) return 0xFF;
  return c;
}

bool confirmDeletion(App& app, const std::string& prompt) {
  return app.platform.ui.MsgBox(prompt, MsgButtons::YesNo, MsgIcon::Exclamation, "Bekreft sletting") ==
         MsgResult::Yes;
}

void deleteSelectedCell(App& app) {
  ProjectStore& store = app.store;
  std::string name = getField(store.itemList.List(store.selectedCell), key::methodName);
  if (!confirmDeletion(app, "Er du sikker på at du vil slette '"_cp + name + "'?")) return;
  store.itemList.RemoveItem(store.selectedCell);
  store.sizeList.RemoveItem(store.selectedCell);
  store.removeLongDescription(store.selectedCell);
  store.selectedCell = -1;
  // The links of the cell go in this redraw, which finds their cell missing.
  redrawBoard(app);
  store.markChanged();
}

void deleteSelectedLink(App& app) {
  ProjectStore& store = app.store;
  const std::string& record = store.linkList.List(store.selectedLink);
  if (!confirmDeletion(app, "Er du sikker på at du vil slette koblingen mellom '"_cp +
                                getField(record, key::linkSource) + "' og '" +
                                getField(record, key::linkTarget) + "'?"))
    return;
  store.linkList.RemoveItem(store.selectedLink);
  store.linkSizeList.RemoveItem(store.selectedLink);
  store.selectedLink = -1;
  redrawBoard(app);
  store.markChanged();
}

void writeCellFields(ProjectStore& store, const std::string& color, const std::string& fill) {
  std::string record = store.itemList.List(store.selectedCell);
  record = setField(record, key::cellFillStyle, fill);
  record = setField(record, key::cellColor, color);
  store.itemList.setList(store.selectedCell, std::move(record));
}

void colourSelectedCell(App& app, int16_t KeyCode) {
  ProjectStore& store = app.store;
  store.currentColor = kColors[static_cast<size_t>(KeyCode - kKeyDigit1)];
  if (store.selectedCell == -1) return;
  store.itemList.setList(store.selectedCell, setField(store.itemList.List(store.selectedCell), key::cellColor,
                                                      numberToText(store.currentColor)));
  store.markChanged();
  drawCell(app, store.selectedCell);
}

void fillSelectedCell(App& app, int16_t KeyCode) {
  ProjectStore& store = app.store;
  store.currentFillStyle = kFillStyles[static_cast<size_t>(KeyCode - kKeyDigit1)];
  if (store.selectedCell == -1) return;
  int32_t oldColor = toLong(numberField(store.itemList.List(store.selectedCell), key::cellColor));
  // A pattern leaves the gaps between its lines alone, so the cell is painted solid white
  // first and the new pattern goes over that.
  writeCellFields(store, std::to_string(kWhite), "0");
  drawCell(app, store.selectedCell);
  writeCellFields(store, numberToText(oldColor), numberToText(store.currentFillStyle));
  drawCell(app, store.selectedCell);
  store.markChanged();
}

}  // namespace

void canvas_KeyDown(App& app, int16_t KeyCode, int16_t Shift) {
  ProjectStore& store = app.store;
  if (KeyCode == kKeyF5) redrawBoard(app);
  if (KeyCode == kKeyDelete && store.selectedCell != -1) deleteSelectedCell(app);
  if (KeyCode == kKeyDelete && store.selectedLink != -1) deleteSelectedLink(app);
  // The modifiers are compared as a whole: Shift with a digit, or Ctrl with Shift, is no command.
  if (Shift == kShiftNone && KeyCode >= kKeyDigit1 &&
      KeyCode < kKeyDigit1 + static_cast<int16_t>(kColors.size()))
    colourSelectedCell(app, KeyCode);
  if (Shift == kShiftCtrl && KeyCode >= kKeyDigit1 &&
      KeyCode < kKeyDigit1 + static_cast<int16_t>(kFillStyles.size()))
    fillSelectedCell(app, KeyCode);
}

void canvas_KeyPress(App& app, int16_t KeyAscii) {
  ProjectStore& store = app.store;
  // An empty action key, which a settings file can give, matches no key at all.
  if (!store.actionKey.empty()) {
    auto first = static_cast<unsigned char>(store.actionKey[0]);
    if (KeyAscii == upperCase(first) || KeyAscii == lowerCase(first)) {
      if (store.selectedCell != -1)
        showMethodInfo(app);
      else
        openAddMethodForm(app);
    }
  }
  if (KeyAscii == '+') zoomIn(app);
  if (KeyAscii == '-') zoomOut(app);
}

void setColorMenu_Click(App& app, int number) {
  if (number >= 1 && number <= static_cast<int>(kColors.size()))
    canvas_KeyDown(app, static_cast<int16_t>(kKeyDigit1 - 1 + number), kShiftNone);
}

void setFillMenu_Click(App& app, int number) {
  if (number >= 1 && number <= static_cast<int>(kFillStyles.size()))
    canvas_KeyDown(app, static_cast<int16_t>(kKeyDigit1 - 1 + number), kShiftCtrl);
}

}  // namespace tavlero
