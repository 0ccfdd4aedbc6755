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
#include <map>
#include <memory>
#include <tuple>

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

// The menu bar of tests/data/qt/menus.txt, with the effect of each entry that has a handler.
// It runs on the board as read, moved off its corner and off the view, with no colour or
// fill chosen; an entry with a shortcut runs by its keys, with the menus closed.
TEST_F(WindowTest, EveryEntryHasItsCaptionAndShortcutAndReachesItsHandler) {
  auto effectOf = [this](const std::string& effect) -> std::function<bool()> {
    const std::string what = effect.substr(0, effect.rfind(' ')),
                      value = effect.substr(effect.rfind(' ') + 1);
    if (effect.starts_with("saved "))
      return [this, filter = effect.substr(6)] {
        return dialog.saves == 1 && dialog.filtersSeen == std::vector<std::string>{filter};
      };
    if (what == "zoom") return [this, zoom = std::stof(value)] { return app.store.zoomFactor == zoom; };
    if (what == "colour")
      return [this, colour = std::stoi(value)] { return app.store.currentColor == colour; };
    if (what == "fill") return [this, fill = std::stoi(value)] { return app.store.currentFillStyle == fill; };
    const std::map<std::string, std::function<bool()>> named = {
        {"empty board", [this] { return app.store.itemList.ListCount() == 0; }},
        {"open dialog", [this] { return dialog.opens == 1; }},
        {"printed", [this] { return printer.printed == 1; }},
        {"program info", [this] { return forms.programInfo.shown; }},
        {"compressed", [this] { return getField(app.store.itemList.List(0), "positionX") == " 10"; }},
        {"text copied", [this] { return clipboard.text.find("Fast") != std::string::npos; }},
        {"picture copied", [this] { return clipboard.pictures == 1; }},
        {"view reset", [this] { return canvas.Left() == 0; }},
        {"method info", [this] { return forms.lastMethodInfo && forms.lastMethodInfo->shown; }},
        {"about", [this] { return forms.lastAbout && forms.lastAbout->shown; }}};
    return effect.empty() ? nullptr : named.at(effect);
  };
  const auto rows = testing::readCases("qt/menus.txt");
  QList<QAction*> actions = entries(window.menuBar()->actions());
  ASSERT_EQ(actions.size(), rows.size());
  for (int i = 0; i < actions.size(); ++i) {
    const std::string& caption = rows[i].at(0);
    const QKeySequence keys(QString::fromStdString(rows[i].at(1)));
    const std::function<bool()> happened = effectOf(rows[i].at(2));
    SCOPED_TRACE(caption);
    EXPECT_EQ(std::tuple(actions[i]->text(), actions[i]->shortcut(), actions[i]->isEnabled()),
              std::tuple(QString::fromStdString(caption), keys, !caption.starts_with("---")));
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
