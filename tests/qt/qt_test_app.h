#pragma once
// One QApplication for the whole test program, made by whichever test needs it first.
// Every Qt test calls ensureQtApp() before touching a widget, a font or the clipboard.

#include <QApplication>

namespace tavlero::testing {

inline void ensureQtApp() {
  if (QCoreApplication::instance()) return;
  static int argc = 1;
  static char name[] = "test_qt";
  static char* argv[] = {name, nullptr};
  new QApplication(argc, argv);  // lives until the program ends
}

}  // namespace tavlero::testing
