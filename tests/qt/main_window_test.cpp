// main on Qt: its start, its menus, the question on closing, the focus; its canvas
// between Qt's events and the logic; and the message boxes and file dialog it shows.

#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>

#include "board/compress.h"
#include "qt/board_painter.h"
#include "qt/main_window.h"
#include "qt/norwegian.h"
#include "qt/qt_common_dialog.h"
#include "qt/qt_ui.h"
#include "qt_world.h"

namespace tavlero {
namespace {

// main shown and active, with the board read, in a folder of its own for the pages that
// the menus write.
class WindowTest : public ::testing::Test, protected testing::QtWorld {
 protected:
  void SetUp() override {
    std::filesystem::current_path(pageFolder.path());
    startCanvas();
    ASSERT_TRUE(readBoard());
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  void TearDown() override { std::filesystem::current_path(previous); }

  // Every entry of the menu bar, each menu before its own entries.
  static QList<QAction*> entries(const QList<QAction*>& actions) {
    QList<QAction*> all;
    for (QAction* action : actions)
      all << action << (action->menu() ? entries(action->menu()->actions()) : QList<QAction*>());
    return all;
  }

  QPointF centreOf(int16_t cell) const { return cellPixels(cell).center(); }
  void mouse(QEvent::Type type, QPointF at) {
    Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
  }
  void click(QPointF at) {
    mouse(QEvent::MouseButtonPress, at);
    mouse(QEvent::MouseButtonRelease, at);
  }
  void key(int qtKey, Qt::KeyboardModifiers modifiers, const char* text) {
    QKeyEvent event(QEvent::KeyPress, qtKey, modifiers, QString::fromLatin1(text));
    QCoreApplication::sendEvent(&widget, &event);
  }

  testing::TempDir pageFolder;
  const std::filesystem::path previous = std::filesystem::current_path();
  MainWindow window{app, canvas};
  CanvasWidget& widget = window.canvas();
};

// Runs act on the modal dialog of type D once it shows, from inside its event loop.
template <typename D>
void whenModal(std::function<void(D*)> act) {
  auto* timer = new QTimer;
  timer->setInterval(5);
  QObject::connect(timer, &QTimer::timeout, [timer, act] {
    if (auto* dialog = qobject_cast<D*>(QApplication::activeModalWidget())) {
      timer->stop();
      timer->deleteLater();
      act(dialog);
    }
  });
  timer->start();
}

TEST_F(WindowTest, StartsTitledWithTheFocusOnTheCanvas) {
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Tavlero"));
  EXPECT_EQ(QApplication::focusWidget(), &widget);
  window.setInputEnabled(false);  // as a dialog leaves it
  window.setInputEnabled(true);
  window.focusMain();
  EXPECT_EQ(QApplication::focusWidget(), &widget);
}

// The menu bar in order, with the effect of each entry that has a handler. It runs on
// the board as read, moved off its corner and off the view, with no colour or fill
// chosen; an entry with a shortcut runs by its keys, with the menus closed.
TEST_F(WindowTest, EveryEntryHasItsCaptionAndShortcutAndReachesItsHandler) {
  const char* divider = "-------------------";
  auto saved = [&](const char* filter) {
    return [this, filter] {
      return dialog.saves == 1 && dialog.filtersSeen == std::vector<std::string>{filter};
    };
  };
  auto colour = [&](int32_t number) { return [this, number] { return app.store.currentColor == number; }; };
  auto fill = [&](int32_t style) { return [this, style] { return app.store.currentFillStyle == style; }; };
  const char* projects = "Tavlero-prosjekter (*.tvl)|*.tvl";
  const std::tuple<const char*, QKeySequence, std::function<bool()>> rows[] = {
      {"&Fil", {}, {}},
      {"&Nytt prosjekt", Qt::CTRL | Qt::Key_N, [&] { return app.store.itemList.ListCount() == 0; }},
      {"&Åpne", Qt::CTRL | Qt::Key_O, [&] { return dialog.opens == 1; }},
      {"&Lagre", Qt::CTRL | Qt::Key_S, saved(projects)},
      {"Lagre &som...", Qt::CTRL | Qt::Key_F1, saved(projects)},
      {divider, {}, {}},
      {"&Eksportering", {}, {}},
      {"Lagre som &bilde", {}, saved("Punktgrafikk (*.bmp)|*.bmp")},
      {"Lagre som &tekst", {}, saved("Tekstfiler (*.txt)|*.txt")},
      {"Lagre som &HTML", {}, saved("HTML-dokumenter (*.html)|*.html")},
      {"Skriv &ut..", Qt::CTRL | Qt::Key_P, [&] { return printer.printed == 1; }},
      {divider, {}, {}},
      {"&Avslutt programmet", {}, {}},
      {"&Redigér", {}, {}},
      {"Zoom &inn (+)", {}, [&] { return app.store.zoomFactor == 2.5f; }},
      {"Zoom &ut (-)", {}, [&] { return app.store.zoomFactor == 1.5f; }},
      {"Sett &farge", {}, {}},
      {"Lysegrå (1)", {}, colour(12632256)},
      {"Mørkegrå (2)", {}, colour(8421504)},
      {"Blå (3)", {}, colour(16711680)},
      {"Grønn (4)", {}, colour(65280)},
      {"Cyan (5)", {}, colour(16776960)},
      {"Rød (6)", {}, colour(255)},
      {"Lilla (7)", {}, colour(16711935)},
      {"Gul (8)", {}, colour(65535)},
      {"Hvit (9)", {}, colour(16777215)},
      {"Sett fylltype", {}, {}},
      {"Fast (Ctrl+1)", {}, fill(0)},
      {"Horisontale striper (Ctrl+2)", {}, fill(2)},
      {"Vertikale striper (Ctrl+3)", {}, fill(3)},
      {"Diagonale striper venstre (Ctrl+4)", {}, fill(4)},
      {"Diagonale striper høyre (Ctrl+5)", {}, fill(5)},
      {"Rutenett (Ctrl+6)", {}, fill(6)},
      {"Kryss (Ctrl+7)", {}, fill(7)},
      {"Redigér programinfo", Qt::CTRL | Qt::Key_I, [&] { return forms.programInfo.shown; }},
      {"Komprimér brett til skjema", Qt::CTRL | Qt::Key_K,
       [&] { return getField(app.store.itemList.List(0), "positionX") == " 10"; }},
      {"Kopiér skjema som tekst til utklippstavlen", Qt::CTRL | Qt::Key_T,
       [&] { return clipboard.text.find("Fast") != std::string::npos; }},
      {"Kopiér skjema som bilde til utklippstablen", Qt::CTRL | Qt::Key_C,
       [&] { return clipboard.pictures == 1; }},
      {"&Nullstill synsfelt", Qt::CTRL | Qt::Key_R, [&] { return canvas.Left() == 0; }},
      {"&Metodeinfo/prosjektinfo", Qt::CTRL | Qt::Key_Z,
       [&] { return forms.lastMethodInfo && forms.lastMethodInfo->shown; }},
      {"&Hjelp", {}, {}},
      {"&Om...", Qt::Key_F1, [&] { return forms.lastAbout && forms.lastAbout->shown; }},
  };
  QList<QAction*> actions = entries(window.menuBar()->actions());
  ASSERT_EQ(actions.size(), std::size(rows));
  for (int i = 0; i < actions.size(); ++i) {
    const auto& [caption, keys, happened] = rows[i];
    SCOPED_TRACE(caption);
    EXPECT_EQ(actions[i]->text(), QString::fromUtf8(caption));
    EXPECT_EQ(actions[i]->shortcut(), keys);
    EXPECT_EQ(actions[i]->isEnabled(), std::string_view(caption) != divider);  // the dividers are disabled
    if (!happened) continue;
    dialog = {};
    app.store.zoomFactor = 2.0f;
    app.store.currentColor = app.store.currentFillStyle = -1;
    ASSERT_TRUE(readBoard());
    shiftBoard(app, 100, 0);
    canvas.Move(-40, -30);
    ASSERT_FALSE(happened());
    if (keys.isEmpty())
      actions[i]->trigger();
    else
      QTest::keySequence(&window, keys);
    EXPECT_TRUE(happened());
  }
}

TEST_F(WindowTest, ClosingWithUnsavedWorkMayBeCancelled) {
  app.store.isSaved = false;
  ui.answers = {MsgResult::Cancel};
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
}

TEST_F(WindowTest, EveryPhysicalPressOfADoubleClickReachesMouseDownOnce) {
  // A press on the selected cell draws it a fixed number of operations.
  QPointF at = centreOf(0);
  click(at);
  size_t before = canvas.Image().size();
  click(at);
  size_t perPress = canvas.Image().size() - before;
  ASSERT_GT(perPress, 0u);

  // The window system sends the second press as a double click only; another platform
  // may send a press and then the double click.
  for (bool pressFirst : {false, true}) {
    app.addMethodForm.reset();
    before = canvas.Image().size();
    click(at);
    if (pressFirst) mouse(QEvent::MouseButtonPress, at);
    mouse(QEvent::MouseButtonDblClick, at);
    mouse(QEvent::MouseButtonRelease, at);
    EXPECT_EQ(canvas.Image().size() - before, 2 * perPress) << pressFirst;
  }
}

TEST_F(WindowTest, KeypadDigitsAreNotTheDigitsOfTheMainBlock) {
  click(centreOf(2));
  key(Qt::Key_3, Qt::KeypadModifier, "3");  // not a digit of the main block
  EXPECT_EQ(app.store.currentColor, 16777215);
  key(Qt::Key_3, Qt::NoModifier, "3");
  EXPECT_EQ(app.store.currentColor, 16711680);
}

TEST_F(WindowTest, TheCanvasPaintsTheBoardInViewFarPanned) {
  // A cell far out makes the board hundreds of thousands of pixels wide.
  app.store.itemList.setList(0, setField(app.store.itemList.List(0), "positionX", " 30000"));
  redrawBoard(app);
  QPointF solid = centreOf(0);
  canvas.Move(-static_cast<float>((solid.x() - 100) * 25.4 / 96), 0);
  ASSERT_LT(widget.x(), -200000);
  QImage shown = widget.grab(QRect(-widget.x(), 0, 967, 656)).toImage();
  EXPECT_EQ(shown.pixelColor(QPoint(130, static_cast<int>(solid.y() + 5))), QColor(0, 0, 255));
  EXPECT_EQ(shown.pixelColor(QPoint(900, 600)), boardBackground());
}

TEST_F(WindowTest, MessageBoxesHaveTheirButtonsWithYesTheDefault) {
  using B = QMessageBox;
  const std::tuple<MsgButtons, MsgIcon, B::StandardButtons, B::Icon, Qt::Key, MsgResult> rows[] = {
      {MsgButtons::YesNoCancel, MsgIcon::Exclamation, B::Yes | B::No | B::Cancel, B::Warning, Qt::Key_Escape,
       MsgResult::Cancel},
      {MsgButtons::YesNo, MsgIcon::Exclamation, B::Yes | B::No, B::Warning, Qt::Key_Escape, MsgResult::No},
      {MsgButtons::YesNo, MsgIcon::Critical, B::Yes | B::No, B::Critical, Qt::Key_Return, MsgResult::Yes},
      {MsgButtons::OK, MsgIcon::Information, B::Ok, B::Information, Qt::Key_Return, MsgResult::OK},
  };
  QtUi qtUi;
  for (auto [buttons, icon, shown, shownIcon, key, result] : rows) {
    whenModal<B>([&](B* box) {
      EXPECT_EQ(box->icon(), shownIcon);
      EXPECT_EQ(box->standardButtons(), shown);
      EXPECT_EQ(box->defaultButton(), box->button(shown & B::Yes ? B::Yes : B::Ok));
      QTest::keyClick(box, key);
    });
    EXPECT_EQ(qtUi.MsgBox("Vil du lagre f\xF8r du avslutter?", buttons, icon, "Advarsel"), result);
  }
}

TEST_F(WindowTest, FileDialogTakesTheFilterAndDefaultExtension) {
  testing::TempDir folder;
  QtCommonDialog common;
  common.Filter = "Tavlero-prosjekter (*.tvl)|*.tvl|Bilder (*.bmp;*.png)|*.bmp;*.png";
  common.DefaultExt = "*.tvl";
  whenModal<QFileDialog>([&](QFileDialog* files) {
    EXPECT_EQ(files->nameFilters(), QStringList({QStringLiteral("Tavlero-prosjekter (*.tvl)"),
                                                 QStringLiteral("Bilder (*.bmp *.png)")}));
    EXPECT_EQ(files->defaultSuffix(), QStringLiteral("tvl"));
    files->setDirectory(QString::fromStdString(folder.path()));
    files->selectFile(QStringLiteral("plan"));
    static_cast<QDialog*>(files)->accept();
  });
  ASSERT_TRUE(common.ShowSave());  // saving adds the extension to a bare name
  EXPECT_EQ(common.FileName, folder.file("plan.tvl"));
}

// As a user types it: a name in a folder that does not exist is refused and the dialog
// stays open, so the save never starts.
TEST_F(WindowTest, SaveDialogRefusesANameInAMissingFolder) {
  testing::TempDir folder;
  QtCommonDialog common;
  common.Flags = 2050;
  QString refusal;
  whenModal<QFileDialog>([&](QFileDialog* files) {
    auto* name = files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    whenModal<QMessageBox>([&](QMessageBox* box) {
      refusal = box->text();
      box->accept();
    });
    name->setText(QString::fromStdString(folder.file("mangler/plan.tvl")));
    static_cast<QDialog*>(files)->accept();
    EXPECT_TRUE(files->isVisible());
    name->setText(QString::fromStdString(folder.file("plan.tvl")));
    static_cast<QDialog*>(files)->accept();
  });
  ASSERT_TRUE(common.ShowSave());
  EXPECT_EQ(common.FileName, folder.file("plan.tvl"));
  EXPECT_TRUE(refusal.contains(QStringLiteral("Mappen finnes ikke"))) << refusal.toStdString();
}

// Qt's own texts in the standard buttons, the file dialog and a text box's menu.
TEST_F(WindowTest, QtsOwnTextsAreNorwegian) {
  installNorwegian(*QCoreApplication::instance());
  QMessageBox box;
  QLineEdit edit;
  std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
  QStringList menuTexts;
  for (QAction* action : menu->actions()) menuTexts << action->text();
  QStringList dialogTexts;
  QtCommonDialog common;
  whenModal<QFileDialog>([&](QFileDialog* files) {
    for (QLabel* label : files->findChildren<QLabel*>()) dialogTexts << label->text();
    for (QAbstractButton* button : files->findChildren<QAbstractButton*>()) dialogTexts << button->text();
    files->reject();
  });
  common.ShowOpen();
  EXPECT_EQ(box.addButton(QMessageBox::Yes)->text(), QStringLiteral("&Ja"));
  EXPECT_EQ(box.addButton(QMessageBox::Cancel)->text(), QStringLiteral("Avbryt"));
  EXPECT_TRUE(menuTexts.contains(QStringLiteral("&Kopier")));
  for (const char* text : {"Se i:", "Fil&navn:", "Filtype:", "&Åpne", "Avbryt"})
    EXPECT_TRUE(dialogTexts.contains(QString::fromUtf8(text)))
        << text << " in " << dialogTexts.join('|').toStdString();
}

}  // namespace
}  // namespace tavlero
