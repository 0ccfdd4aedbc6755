#include "qt/main_menus.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <functional>

#include "board/board.h"
#include "board/compress.h"
#include "editing/keys.h"
#include "export/html_report.h"
#include "export/info_dialogs.h"
#include "export/info_view.h"
#include "export/pictures.h"
#include "export/text_scheme.h"
#include "files/project_commands.h"

namespace tavlero {

namespace {
constexpr const char* kDivider = "-------------------";

void entry(QMenu* menu, const char* caption, const QKeySequence& shortcut, std::function<void()> handler) {
  QAction* action = menu->addAction(QString::fromUtf8(caption));
  action->setShortcut(shortcut);
  QObject::connect(action, &QAction::triggered, menu, std::move(handler));
}

void divider(QMenu* menu) {
  menu->addAction(QString::fromUtf8(kDivider))->setEnabled(false);
}

void fileMenu(QMenuBar& bar, App& app, QWidget& window) {
  QMenu* menu = bar.addMenu(QStringLiteral("&Fil"));
  entry(menu, "&Nytt prosjekt", QKeySequence(Qt::CTRL | Qt::Key_N), [&app] { newproject_Click(app); });
  entry(menu, "&Åpne", QKeySequence(Qt::CTRL | Qt::Key_O), [&app] { openproject_Click(app); });
  entry(menu, "&Lagre", QKeySequence(Qt::CTRL | Qt::Key_S), [&app] { saveProject_Click(app); });
  entry(menu, "Lagre &som...", QKeySequence(Qt::CTRL | Qt::Key_F1), [&app] { saveProjectAs_Click(app); });
  divider(menu);
  QMenu* exports = menu->addMenu(QStringLiteral("&Eksportering"));
  entry(exports, "Lagre som &bilde", {}, [&app] { saveBoardPicture(app); });
  entry(exports, "Lagre som &tekst", {}, [&app] { saveSchemeText(app); });
  entry(exports, "Lagre som &HTML", {}, [&app] { saveHtmlReport(app); });
  entry(menu, "Skriv &ut..", QKeySequence(Qt::CTRL | Qt::Key_P), [&app] { printproject_Click(app); });
  divider(menu);
  entry(menu, "&Avslutt programmet", {}, [&window] { window.close(); });
}

void toolsMenu(QMenuBar& bar, App& app) {
  QMenu* menu = bar.addMenu(QString::fromUtf8("&Redigér"));
  entry(menu, "Zoom &inn (+)", {}, [&app] { zoomIn(app); });
  entry(menu, "Zoom &ut (-)", {}, [&app] { zoomOut(app); });

  QMenu* colours = menu->addMenu(QStringLiteral("Sett &farge"));
  const char* colourCaptions[] = {"Lysegrå (1)", "Mørkegrå (2)", "Blå (3)", "Grønn (4)", "Cyan (5)",
                                  "Rød (6)",     "Lilla (7)",    "Gul (8)", "Hvit (9)"};
  for (int n = 1; n <= 9; ++n)
    entry(colours, colourCaptions[n - 1], {}, [&app, n] { setColorMenu_Click(app, n); });

  QMenu* fills = menu->addMenu(QStringLiteral("Sett fylltype"));
  const char* fillCaptions[] = {"Fast (Ctrl+1)",
                                "Horisontale striper (Ctrl+2)",
                                "Vertikale striper (Ctrl+3)",
                                "Diagonale striper venstre (Ctrl+4)",
                                "Diagonale striper høyre (Ctrl+5)",
                                "Rutenett (Ctrl+6)",
                                "Kryss (Ctrl+7)"};
  for (int n = 1; n <= 7; ++n)
    entry(fills, fillCaptions[n - 1], {}, [&app, n] { setFillMenu_Click(app, n); });

  entry(menu, "Redigér programinfo", QKeySequence(Qt::CTRL | Qt::Key_I), [&app] { editClass_Click(app); });
  entry(menu, "Komprimér brett til skjema", QKeySequence(Qt::CTRL | Qt::Key_K),
        [&app] { compress_Click(app); });
  entry(menu, "Kopiér skjema som tekst til utklippstavlen", QKeySequence(Qt::CTRL | Qt::Key_T),
        [&app] { copySchemeText(app); });
  entry(menu, "Kopiér skjema som bilde til utklippstablen", QKeySequence(Qt::CTRL | Qt::Key_C),
        [&app] { copyBoardPicture(app); });
  entry(menu, "&Nullstill synsfelt", QKeySequence(Qt::CTRL | Qt::Key_R), [&app] { resetview_Click(app); });
  entry(menu, "&Metodeinfo/prosjektinfo", QKeySequence(Qt::CTRL | Qt::Key_Z),
        [&app] { showMethodInfo(app); });
}

void helpMenu(QMenuBar& bar, App& app) {
  QMenu* menu = bar.addMenu(QStringLiteral("&Hjelp"));
  entry(menu, "&Om...", QKeySequence(Qt::Key_F1), [&app] { aboutmenu_Click(app); });
}
}  // namespace

void buildMenuBar(QMenuBar& bar, App& app, QWidget& window) {
  fileMenu(bar, app, window);
  toolsMenu(bar, app);
  helpMenu(bar, app);
}

}  // namespace tavlero
