#pragma once
// The menu bar of main: every entry with its caption, accelerator and shortcut, wired
// to its handler in the logic.

#include <QMenuBar>
#include <QWidget>

#include "core/app.h"

namespace tavlero {

// window is main; "Avslutt programmet" closes it.
void buildMenuBar(QMenuBar& bar, App& app, QWidget& window);

}  // namespace tavlero
