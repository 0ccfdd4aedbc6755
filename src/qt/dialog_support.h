#pragma once
// What the dialogs of the program share on Qt: the layout in twips at the logical DPI,
// the frame without minimise and maximise boxes, the CR LF line breaks of the logic's
// texts, and showing without blocking and discarding from inside the dialog's own events.

#include <QFont>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <string>

namespace tavlero {

// A dialog with a title bar and the close box; without minimise and maximise buttons.
constexpr Qt::WindowFlags kFixedDialog = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

// The classic 8-point dialog font that the twips layout was measured for. Each dialog
// sets it on itself, so a larger desktop font, even one given after start, cuts no label.
QFont dialogFont();

int pixels(double twips);
float twips(int pixels);
void place(QWidget* widget, double left, double top, double width, double height);

// The logic holds line breaks as CR LF; Qt's text edits hold LF.
QString multiLineText(const std::string& text);
std::string logicText(QString text);

void showAndActivate(QWidget* window);

// Deleted once the event that asked for it has ended (the logic lets a form go from
// inside the form's own events); the pointer forgets it now, so nothing reaches it.
template <class Dialog>
void discard(QPointer<Dialog>& dialog) {
  if (!dialog) return;
  Dialog* doomed = dialog;
  dialog = nullptr;
  doomed->hide();
  doomed->deleteLater();
}

}  // namespace tavlero
