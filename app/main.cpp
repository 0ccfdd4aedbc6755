// tavlero: the desktop program. Start-up runs before main shows, so that a project named
// on the command line is on the board when the window first appears.

#include <QApplication>
#include <QFile>
#include <clocale>
#include <string>

#include "program/startup.h"
#include "qt/desktop.h"
#include "qt/norwegian.h"

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  // Qt takes the user's locale for the C library too; under a Norwegian one a number in a
  // plan would read up to its decimal point only.
  std::setlocale(LC_NUMERIC, "C");
  tavlero::installNorwegian(application);
  tavlero::Desktop desktop;

  // The arguments Qt left, as the native bytes they came in, joined by one blank.
  std::string commandLine;
  for (int i = 1; i < argc; ++i) commandLine += (i > 1 ? " " : "") + std::string(argv[i]);
  std::string programPath = QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString();

  if (!tavlero::Form_Load(desktop.app(), programPath, commandLine)) return 1;
  desktop.window().show();
  return QApplication::exec();
}
