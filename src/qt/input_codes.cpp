#include "qt/input_codes.h"

#include "core/cp1252.h"

namespace tavlero {

namespace {
struct KeyPair {
  int qt;
  int16_t code;
};

constexpr KeyPair kMainKeys[] = {
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},      {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},       {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},     {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},       {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},      {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},      {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},         {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},        {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},       {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},       {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},      {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},        {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145}, {Qt::Key_Semicolon, 186},
    {Qt::Key_Plus, 187},       {Qt::Key_Equal, 187},
    {Qt::Key_Comma, 188},      {Qt::Key_Minus, 189},
    {Qt::Key_Period, 190},     {Qt::Key_Slash, 191},
    {Qt::Key_QuoteLeft, 192},  {Qt::Key_BracketLeft, 219},
    {Qt::Key_Backslash, 220},  {Qt::Key_BracketRight, 221},
    {Qt::Key_Apostrophe, 222},
};

// The keypad: digits 96 to 105, then * + - . / as their own keys.
constexpr KeyPair kKeypadKeys[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},  {Qt::Key_Minus, 109}, {Qt::Key_Period, 110},
    {Qt::Key_Comma, 110},    {Qt::Key_Slash, 111}, {Qt::Key_Enter, 13},
};

int16_t lookUp(const KeyPair* begin, const KeyPair* end, int key) {
  for (const KeyPair* pair = begin; pair != end; ++pair)
    if (pair->qt == key) return pair->code;
  return 0;
}
}  // namespace

int16_t windowsKeyCode(int qtKey, Qt::KeyboardModifiers modifiers) {
  if (modifiers & Qt::KeypadModifier) {
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return static_cast<int16_t>(96 + (qtKey - Qt::Key_0));
    if (int16_t code = lookUp(std::begin(kKeypadKeys), std::end(kKeypadKeys), qtKey)) return code;
    // With Num Lock off the keypad sends the movement keys; they share the main codes.
  }
  if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return static_cast<int16_t>(qtKey);
  if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return static_cast<int16_t>(qtKey);
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return static_cast<int16_t>(112 + (qtKey - Qt::Key_F1));
  return lookUp(std::begin(kMainKeys), std::end(kMainKeys), qtKey);
}

int16_t shiftState(Qt::KeyboardModifiers modifiers) {
  int16_t state = 0;
  if (modifiers & Qt::ShiftModifier) state += 1;
  if (modifiers & Qt::ControlModifier) state += 2;
  if (modifiers & Qt::AltModifier) state += 4;
  return state;
}

int16_t buttonSet(Qt::MouseButtons buttons) {
  int16_t set = 0;
  if (buttons & Qt::LeftButton) set += 1;
  if (buttons & Qt::RightButton) set += 2;
  if (buttons & Qt::MiddleButton) set += 4;
  return set;
}

int16_t buttonCode(Qt::MouseButton button) {
  return buttonSet(button);
}

int16_t keyAscii(const QString& text, Qt::KeyboardModifiers modifiers) {
  if (text.isEmpty()) return 0;
  std::string bytes = utf8ToCp1252(text.left(text.at(0).isHighSurrogate() ? 2 : 1).toStdString());
  auto code = bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
  // Delete is a key, not a typed character, whatever the window system says; with Ctrl
  // or Alt held only the control characters count as typed.
  if (code == 127 || (code >= 32 && (modifiers & (Qt::ControlModifier | Qt::AltModifier)))) return 0;
  return static_cast<int16_t>(code);
}

}  // namespace tavlero
