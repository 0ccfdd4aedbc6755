#pragma once
// Qt's own texts in Norwegian: the standard buttons, the file dialogs and the context
// menus of text boxes. The program's own texts are Norwegian already and pass untouched.

#include <QCoreApplication>

namespace tavlero {

// Sets the Norwegian locale and installs the translations; call once, after the
// application exists and before any window.
void installNorwegian(QCoreApplication& application);

}  // namespace tavlero
