// main on Qt: its start geometry, every menu entry and shortcut reaching its handler,
// the question on closing and the focus handed to the canvas.

#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <functional>

#include "core/record.h"
#include "files/project_file.h"
#include "qt/main_window.h"
#include "qt_world.h"

namespace tavlero {
namespace {

using testing::dataPath;

// What the fake world shows after an entry ran.
struct Seen {
  const App& app;
  const testing::FakeForms& forms;
  const testing::FakeClipboard& clipboard;
  const testing::FakeCommonDialog& dialog;
  const testing::FakePrinter& printer;
};

// What an entry does: an optional change before it, and the proof that it ran.
struct Effect {
  std::function<void(App&)> before;
  std::function<bool(const Seen&)> happened;
};

class MainWindowTest : public ::testing::Test, protected testing::QtWorld {
 protected:
  void SetUp() override {
    canvas.setWidth(ui.clientWidth);
    canvas.setHeight(ui.clientHeight);
    ASSERT_TRUE(readProject(app, dataPath("qt/board.tvl")));
  }

  // The entry reached through the captions of its menus.
  QAction* entry(std::initializer_list<const char*> path) {
    QList<QAction*> actions = window.menuBar()->actions();
    QAction* found = nullptr;
    for (const char* caption : path) {
      found = nullptr;
      for (QAction* action : actions)
        if (action->text() == QString::fromUtf8(caption)) found = action;
      if (!found) return nullptr;
      if (found->menu()) actions = found->menu()->actions();
    }
    return found;
  }

  // Each entry starts from the board as read, with nothing shown or copied yet.
  void runFromFreshBoard(const Effect& effect, const std::function<void()>& run) {
    dialog = {};
    clipboard = {};
    printer = {};
    forms.programInfo.shown = false;
    forms.lastAbout = nullptr;
    forms.lastMethodInfo = nullptr;
    app.aboutForm.reset();
    app.methodInfoForm.reset();
    app.store.zoomFactor = 2.0f;
    app.store.isSaved = true;
    app.store.projectFileName.clear();
    ASSERT_TRUE(readProject(app, dataPath("qt/board.tvl")));
    if (effect.before) effect.before(app);
    run();
    EXPECT_TRUE(effect.happened(Seen{app, forms, clipboard, dialog, printer}));
  }

  MainWindow window{app, canvas};
};

const Effect kZoomedIn{{}, [](const Seen& s) { return s.app.store.zoomFactor == 2.5f; }};
const Effect kZoomedOut{{}, [](const Seen& s) { return s.app.store.zoomFactor == 1.5f; }};
const Effect kBlue{{}, [](const Seen& s) { return s.app.store.currentColor == 16711680; }};
const Effect kCross{{}, [](const Seen& s) { return s.app.store.currentFillStyle == 7; }};
const Effect kViewReset{[](App& a) { a.canvas.Move(-40, -30); },
                        [](const Seen& s) { return s.app.canvas.Left() == 0 && s.app.canvas.Top() == 0; }};
// Compression brings the board, moved away from the corner, back to 10, 10.
const Effect kCompressed{
    [](App& a) {
      for (int16_t i = 0; i < a.store.itemList.ListCount(); ++i) {
        const std::string& record = a.store.itemList.List(i);
        double x = textToNumber(getField(record, "positionX")) + 100;
        a.store.itemList.setList(i, setField(record, "positionX", numberToText(x)));
      }
    },
    [](const Seen& s) { return textToNumber(getField(s.app.store.itemList.List(0), "positionX")) == 10; }};
const Effect kNewProject{{}, [](const Seen& s) { return s.app.store.itemList.ListCount() == 0; }};
const Effect kOpenDialog{{}, [](const Seen& s) { return s.dialog.opens == 1; }};
Effect saveDialogWith(const char* filter) {
  return {{}, [filter](const Seen& s) {
            return s.dialog.saves == 1 && s.dialog.filtersSeen == std::vector<std::string>{filter};
          }};
}
const Effect kPrinted{{}, [](const Seen& s) { return s.printer.printed == 1; }};
const Effect kProgramInfo{{}, [](const Seen& s) { return s.forms.programInfo.shown; }};
const Effect kAbout{{}, [](const Seen& s) { return s.forms.lastAbout && s.forms.lastAbout->shown; }};
const Effect kMethodInfo{
    {}, [](const Seen& s) { return s.forms.lastMethodInfo && s.forms.lastMethodInfo->shown; }};
const Effect kTextCopied{{}, [](const Seen& s) {
                           return s.clipboard.hasText && s.clipboard.text.find("Fast") != std::string::npos;
                         }};
const Effect kPictureCopied{{}, [](const Seen& s) { return s.clipboard.pictures == 1; }};

const char* kProjects = "Tavlero-prosjekter (*.tvl)|*.tvl";

TEST_F(MainWindowTest, StartsWithTheClientAreaAndPlaceOfTheDesign) {
  EXPECT_EQ(window.windowTitle(), QStringLiteral("Tavlero"));
  QSizeF client = window.clientSizeMm();
  EXPECT_NEAR(client.width(), ui.clientWidth, 0.3);
  EXPECT_NEAR(client.height(), ui.clientHeight, 0.3);
  window.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  EXPECT_NEAR(window.clientSizeMm().width(), ui.clientWidth, 0.3);
  EXPECT_EQ(window.pos(), QPoint(11, 41));

  QAction* nothing = entry({"&Fil", "-------------------"});
  ASSERT_NE(nothing, nullptr);
  EXPECT_FALSE(nothing->isEnabled());
  int dividers = 0;
  for (QAction* action : entry({"&Fil"})->menu()->actions())
    if (action->text() == QStringLiteral("-------------------")) {
      EXPECT_FALSE(action->isEnabled());
      ++dividers;
    }
  EXPECT_EQ(dividers, 2);
}

TEST_F(MainWindowTest, EveryMenuEntryReachesItsHandler) {
  struct Case {
    std::initializer_list<const char*> path;
    Effect effect;
  };
  const Case cases[] = {
      {{"&Fil", "&Nytt prosjekt"}, kNewProject},
      {{"&Fil", "&Åpne"}, kOpenDialog},
      {{"&Fil", "&Lagre"}, saveDialogWith(kProjects)},
      {{"&Fil", "Lagre &som..."}, saveDialogWith(kProjects)},
      {{"&Fil", "&Eksportering", "Lagre som &bilde"}, saveDialogWith("Punktgrafikk (*.bmp)|*.bmp")},
      {{"&Fil", "&Eksportering", "Lagre som &tekst"}, saveDialogWith("Tekstfiler (*.txt)|*.txt")},
      {{"&Fil", "&Eksportering", "Lagre som &HTML"}, saveDialogWith("HTML-dokumenter (*.html)|*.html")},
      {{"&Fil", "Skriv &ut.."}, kPrinted},
      {{"&Redigér", "Zoom &inn (+)"}, kZoomedIn},
      {{"&Redigér", "Zoom &ut (-)"}, kZoomedOut},
      {{"&Redigér", "Sett &farge", "Blå (3)"}, kBlue},
      {{"&Redigér", "Sett fylltype", "Kryss (Ctrl+7)"}, kCross},
      {{"&Redigér", "Redigér programinfo"}, kProgramInfo},
      {{"&Redigér", "Komprimér brett til skjema"}, kCompressed},
      {{"&Redigér", "Kopiér skjema som tekst til utklippstavlen"}, kTextCopied},
      {{"&Redigér", "Kopiér skjema som bilde til utklippstablen"}, kPictureCopied},
      {{"&Redigér", "&Nullstill synsfelt"}, kViewReset},
      {{"&Redigér", "&Metodeinfo/prosjektinfo"}, kMethodInfo},
      {{"&Hjelp", "&Om..."}, kAbout},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(*(c.path.end() - 1));
    QAction* action = entry(c.path);
    ASSERT_NE(action, nullptr);
    runFromFreshBoard(c.effect, [&] { action->trigger(); });
  }
}

TEST_F(MainWindowTest, ShortcutsWorkWithTheMenusClosed) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  struct Case {
    QKeySequence keys;
    Effect effect;
  };
  const Case cases[] = {
      {QKeySequence(Qt::CTRL | Qt::Key_N), kNewProject},
      {QKeySequence(Qt::CTRL | Qt::Key_O), kOpenDialog},
      {QKeySequence(Qt::CTRL | Qt::Key_S), saveDialogWith(kProjects)},
      {QKeySequence(Qt::CTRL | Qt::Key_F1), saveDialogWith(kProjects)},
      {QKeySequence(Qt::CTRL | Qt::Key_P), kPrinted},
      {QKeySequence(Qt::CTRL | Qt::Key_I), kProgramInfo},
      {QKeySequence(Qt::CTRL | Qt::Key_K), kCompressed},
      {QKeySequence(Qt::CTRL | Qt::Key_T), kTextCopied},
      {QKeySequence(Qt::CTRL | Qt::Key_C), kPictureCopied},
      {QKeySequence(Qt::CTRL | Qt::Key_R), kViewReset},
      {QKeySequence(Qt::CTRL | Qt::Key_Z), kMethodInfo},
      {QKeySequence(Qt::Key_F1), kAbout},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.keys.toString().toStdString());
    runFromFreshBoard(c.effect, [&] { QTest::keySequence(&window, c.keys); });
  }
}

TEST_F(MainWindowTest, ClosingAsksAboutUnsavedWorkAndMayBeCancelled) {
  window.show();
  app.store.isSaved = false;
  ui.answers = {MsgResult::Cancel};
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].title, "Advarsel");

  ui.answers = {MsgResult::No};
  entry({"&Fil", "&Avslutt programmet"})->trigger();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(ui.messages.size(), 2u);

  // Saved work closes without a question.
  window.show();
  app.store.isSaved = true;
  EXPECT_TRUE(window.close());
  EXPECT_EQ(ui.messages.size(), 2u);
}

TEST_F(MainWindowTest, ActivationHandsTheFocusToTheCanvas) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(QApplication::focusWidget(), &window.canvas());

  // Disabled, main takes no input: neither the canvas nor the menus and their shortcuts.
  canvas.Move(-40, -30);
  window.setInputEnabled(false);
  EXPECT_FALSE(window.canvas().isEnabled());
  EXPECT_FALSE(window.menuBar()->isEnabled());
  QTest::keySequence(&window, QKeySequence(Qt::CTRL | Qt::Key_R));
  EXPECT_EQ(canvas.Left(), -40);
  window.setInputEnabled(true);
  QTest::keySequence(&window, QKeySequence(Qt::CTRL | Qt::Key_R));
  EXPECT_EQ(canvas.Left(), 0);
  window.focusMain();
  EXPECT_EQ(QApplication::focusWidget(), &window.canvas());
}

}  // namespace
}  // namespace tavlero
