#pragma once
// Qt's input in the codes the board's handlers take: Windows key codes, the button and
// modifier sets (1 left, 2 right, 4 middle; 1 Shift, 2 Ctrl, 4 Alt) and typed characters.

#include <QString>
#include <Qt>
#include <cstdint>

namespace tavlero {

// The virtual key code of a key; 0 for a key without one. Keypad keys keep their own
// codes, so a keypad digit is never taken for a digit of the main block.
int16_t windowsKeyCode(int qtKey, Qt::KeyboardModifiers modifiers);

int16_t shiftState(Qt::KeyboardModifiers modifiers);

// The one button that changed; 0 for a button the board doesn't know.
int16_t buttonCode(Qt::MouseButton button);
int16_t buttonSet(Qt::MouseButtons buttons);

// The Windows-1252 code of the typed character, control characters such as Enter
// included; 0 when the key typed nothing.
int16_t keyAscii(const QString& text, Qt::KeyboardModifiers modifiers);

}  // namespace tavlero
