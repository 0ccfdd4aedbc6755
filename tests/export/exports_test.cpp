// What the exports share: the worked example's bytes, and that every export only reads
// the project, so that the next plain save still goes to the project's own file.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <tuple>

#include "export/html_report.h"
#include "export/info_view.h"
#include "export/pictures.h"
#include "export/text_scheme.h"
#include "files/project_commands.h"
#include "files/project_file.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

namespace fs = std::filesystem;

// Everything an export must leave as it found it.
auto snapshotOf(FakeWorld& world) {
  const ProjectStore& s = world.app.store;
  std::vector<std::string> longDescriptions;
  for (int16_t i = 0; i < s.itemList.ListCount(); ++i) longDescriptions.push_back(s.getLongDescription(i));
  return std::tuple(s.itemList.items(), s.sizeList.items(), s.linkList.items(), s.linkSizeList.items(),
                    longDescriptions, s.programName, s.programDescription, s.projectFileName, s.projectFolder,
                    s.selectedCell, s.selectedLink, s.isSaved, s.zoomFactor, world.canvas.Left(),
                    world.canvas.Top(), world.canvas.Width(), world.canvas.Height(),
                    world.canvas.Image().size());
}

// The info view writes into the current folder: each test gets its own.
class Exports : public ::testing::Test {
 protected:
  void SetUp() override { fs::current_path(dir_.path()); }
  void TearDown() override { fs::current_path(previous_); }

  // Runs an export that writes a file which was there before; returns what stands in it.
  std::string saved(FakeWorld& world, void (*command)(App&), const std::string& file = "out") {
    writeFile(dir_.file(file), "an old file");
    world.dialog.saveAnswers.push_back(dir_.file("out"));
    command(world.app);
    return readFile(dir_.file(file));
  }

  // Butikk: Les (white, "Leser fil", "Åpner filen.") uses Sjekk (red, "Sjekker").
  void loadExample(FakeWorld& world) {
    ASSERT_TRUE(readProject(world.app, dataPath("export/example/plan.tvl")));
  }

  fs::path previous_ = fs::current_path();
  TempDir dir_;
  FakeWorld world_;
};

TEST_F(Exports, WorkedExamplesByteForByte) {
  // The expected file, the export, the selected cell, and the file written ("" for the clipboard).
  const std::tuple<std::string, void (*)(App&), int16_t, std::string> examples[] = {
      {"scheme.txt", saveSchemeText, -1, "out"},
      {"clipboard.txt", copySchemeText, -1, ""},
      {"report.html", saveHtmlReport, -1, "out"},
      {"info_project.html", showMethodInfo, -1, "TavleroTemp.html"},
      {"info_les.html", showMethodInfo, 0, "TavleroTemp.html"}};
  for (const auto& [expected, run, selected, from] : examples) {
    FakeWorld world;
    loadExample(world);
    world.app.store.selectedCell = selected;
    const std::string written = saved(world, run, from.empty() ? "out" : from);
    EXPECT_EQ(from.empty() ? world.clipboard.text : written, readFile(dataPath("export/example/" + expected)))
        << expected;
  }
}

TEST_F(Exports, EmptyProjectLeavesTheClipboardAndWritesTheFramesAlone) {
  world_.clipboard.SetText("was there");
  copySchemeText(world_.app);
  EXPECT_EQ(std::tuple(world_.clipboard.clears, world_.clipboard.text), std::tuple(0, "was there"));
  EXPECT_EQ(saved(world_, saveSchemeText), "");
  EXPECT_EQ(saved(world_, saveHtmlReport),
            "<html><body>\r\n<h1></h1>\r\n<big><pre></pre></big><hr />\r\n</body></html>\r\n");
  // The picture tests for no empty project, and takes the text off the clipboard.
  copyBoardPicture(world_.app);
  EXPECT_EQ(std::tuple(world_.clipboard.hasText, world_.clipboard.pictures), std::tuple(false, 1));
}

// Each export as chosen, cancelled and failing: the project, selection and view stay, a
// failure names the file, and the next plain save still goes to the project file.
TEST_F(Exports, OnlyReadAndTheNextSaveGoesToTheProjectFile) {
  // The export, and whether it asks for a file to write.
  const std::tuple<std::string, void (*)(App&), bool> exports[] = {
      {"scheme to clipboard", copySchemeText, false},
      {"scheme to file", saveSchemeText, true},
      {"html", saveHtmlReport, true},
      {"picture to clipboard", copyBoardPicture, false},
      {"picture to file", saveBoardPicture, true},
      {"print", printproject_Click, false},
      {"info view", showMethodInfo, false}};
  for (const auto& [label, run, toFile] : exports)
    for (const std::string answer : {"", "butikk.out", "mangler/butikk.out"}) {
      if (!toFile && !answer.empty()) continue;
      SCOPED_TRACE(label + " to '" + answer + "'");
      FakeWorld world;
      loadExample(world);
      ProjectStore& store = world.app.store;
      store.selectedCell = 1;
      store.projectFileName = "butikk.tvl";
      store.projectFolder = dir_.path();
      store.isSaved = false;
      fs::remove(dir_.file("butikk.tvl"));
      const std::string path = dir_.file(answer);
      const bool fails = answer.starts_with("mangler/");
      world.pictures.fail = fails;
      if (!answer.empty()) world.dialog.saveAnswers.push_back(path);
      const auto before = snapshotOf(world);

      run(world.app);
      methodInfoForm_Command1_Click(world.app);  // closes the info view, and does nothing else
      EXPECT_EQ(snapshotOf(world), before);
      EXPECT_FALSE(fs::exists("TavleroTemp.html"));
      const std::string told = world.ui.messages.empty() ? "" : world.ui.messages[0].prompt;
      EXPECT_EQ(std::tuple(world.ui.messages.size(), told.find("'" + path + "'") != std::string::npos),
                std::tuple(size_t{fails}, fails));
      const bool written = !answer.empty() && (fs::exists(path) || !world.pictures.paths.empty());
      EXPECT_EQ(written, !answer.empty() && !fails);

      saveProject_Click(world.app);
      EXPECT_EQ(std::tuple(fs::exists(dir_.file("butikk.tvl")), store.isSaved), std::tuple(true, true));
    }
}

TEST_F(Exports, InfoPageThatCannotBeWrittenLeavesMainEnabled) {
  fs::create_directory("TavleroTemp.html");  // a folder of that name can't be replaced by a file
  showMethodInfo(world_.app);
  ASSERT_EQ(world_.ui.messages.size(), 1u);
  EXPECT_EQ(std::tuple(world_.ui.enabled, world_.app.methodInfoForm == nullptr,
                       world_.ui.messages[0].prompt.find("TavleroTemp.html") != std::string::npos),
            std::tuple(true, true, true));
}

// The page lives as long as the view; the button stays centred on the outer width, with no
// lower limit to any measure.
TEST_F(Exports, InfoViewKeepsItsPageWhileOpenAndPlacesItsControls) {
  showMethodInfo(world_.app);
  EXPECT_EQ(std::tuple(fs::exists("TavleroTemp.html"), world_.ui.enabled), std::tuple(true, false));
  FakeMethodInfo& form = *world_.forms.lastMethodInfo;
  for (const auto& [width, height, placed] :
       {std::tuple{11625.f, 9225.f, std::array{5205.f, 7995.f, 11145.f, 7515.f}},
        {3001.f, 2000.f, {893.f, 770.f, 2521.f, 290.f}},
        {300.f, 200.f, {-457.5f, -1030.f, -180.f, -1510.f}}}) {
    form.width = width;
    form.height = height;
    methodInfoForm_Form_Resize(world_.app);
    EXPECT_EQ((std::array{form.buttonLeft, form.buttonTop, form.browserWidth, form.browserHeight}), placed)
        << width;
  }
  methodInfoForm_Form_QueryUnload(world_.app);
  EXPECT_EQ(std::tuple(fs::exists("TavleroTemp.html"), world_.ui.enabled), std::tuple(false, true));
}

}  // namespace
}  // namespace tavlero::testing
