// What the exports share: the file exports write the worked example's bytes, and every
// export reads the project and nothing else (no record, selection, view, flag or file
// name changes, and the next plain save still goes to the project's own file).

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "board/board.h"
#include "export/html_report.h"
#include "export/info_view.h"
#include "export/pictures.h"
#include "export/text_scheme.h"
#include "export_fixture.h"
#include "files/project_commands.h"

namespace tavlero::testing {
namespace {

namespace fs = std::filesystem;

struct ExportCase {
  std::string label;
  std::function<void(App&)> run;
  std::string outputName;    // the file the export writes, empty for none
  bool writesItself = true;  // false where the file is the platform's to write
  std::string filter = "";
  std::string expected = "";  // the worked example's file, for the text exports
};

void PrintTo(const ExportCase& c, std::ostream* os) {
  *os << c.label;
}

class ExportTest : public ::testing::TestWithParam<ExportCase> {
 protected:
  void SetUp() override {
    loadExample(world_);
    redrawBoard(world_.app);
    ProjectStore& store = world_.app.store;
    store.selectedCell = 1;
    store.projectFileName = "butikk.tvl";
    store.projectFolder = dir_.path();
    store.isSaved = false;
    previous_ = fs::current_path();
    fs::current_path(dir_.path());
  }
  void TearDown() override { fs::current_path(previous_); }

  TempDir dir_;
  fs::path previous_;
  FakeWorld world_;
};

using ExportsOnlyRead = ExportTest;
using ExampleFile = ExportTest;

// The worked example as the file exports write it, with the filter of each dialog.
TEST_P(ExampleFile, ByteForByte) {
  const ExportCase& c = GetParam();
  world_.app.store.selectedCell = -1;
  world_.dialog.saveAnswers.push_back(dir_.file(c.outputName));
  c.run(world_.app);
  EXPECT_EQ(readFile(dir_.file(c.outputName)), exampleFile(c.expected));
  EXPECT_EQ(world_.dialog.filtersSeen, std::vector<std::string>{c.filter});
  EXPECT_EQ(world_.dialog.DefaultExt, c.filter.substr(c.filter.find('|') + 1));
}

using FileExportFailure = ExportTest;

TEST_P(ExportsOnlyRead, AndTheNextSaveGoesToTheProjectFile) {
  const ExportCase& c = GetParam();
  ProjectSnapshot before = snapshotOf(world_);
  if (!c.outputName.empty()) world_.dialog.saveAnswers.push_back(dir_.file(c.outputName));
  c.run(world_.app);
  EXPECT_EQ(snapshotOf(world_), before);
  EXPECT_TRUE(world_.ui.messages.empty());
  if (!c.outputName.empty() && c.writesItself) EXPECT_TRUE(fs::exists(dir_.file(c.outputName)));

  saveProject_Click(world_.app);
  EXPECT_TRUE(fs::exists(dir_.file("butikk.tvl")));
  EXPECT_TRUE(world_.app.store.isSaved);
}

TEST_P(FileExportFailure, NamesTheFileAndLeavesTheProject) {
  const ExportCase& c = GetParam();
  world_.pictures.fail = true;
  ProjectSnapshot before = snapshotOf(world_);
  const std::string path = dir_.file("mangler/" + c.outputName);
  world_.dialog.saveAnswers.push_back(path);
  c.run(world_.app);
  EXPECT_EQ(snapshotOf(world_), before);
  EXPECT_FALSE(fs::exists(path));
  ASSERT_EQ(world_.ui.messages.size(), 1u);
  EXPECT_NE(world_.ui.messages[0].prompt.find("'" + path + "'"), std::string::npos);
}

const ExportCase kScheme{"SchemeToFile", saveSchemeText, "butikk.txt", true, "Tekstfiler (*.txt)|*.txt",
                         "scheme.txt"};
const ExportCase kHtml{"Html",       saveHtmlReport, "butikk.html", true, "HTML-dokumenter (*.html)|*.html",
                       "report.html"};
const ExportCase kPicture{"Picture", saveBoardPicture, "butikk.bmp", false, "Punktgrafikk (*.bmp)|*.bmp"};

INSTANTIATE_TEST_SUITE_P(Texts, ExampleFile, ::testing::Values(kScheme, kHtml),
                         [](const auto& info) { return info.param.label; });

INSTANTIATE_TEST_SUITE_P(Files, FileExportFailure, ::testing::Values(kScheme, kHtml, kPicture),
                         [](const auto& info) { return info.param.label; });

INSTANTIATE_TEST_SUITE_P(Exports, ExportsOnlyRead,
                         ::testing::Values(ExportCase{"SchemeToClipboard", copySchemeText, ""}, kScheme,
                                           kHtml, ExportCase{"PictureToClipboard", copyBoardPicture, ""},
                                           kPicture, ExportCase{"Print", printproject_Click, ""},
                                           ExportCase{"InfoView",
                                                      [](App& app) {
                                                        showMethodInfo(app);
                                                        methodInfoForm_Command1_Click(app);
                                                      },
                                                      ""}),
                         [](const auto& info) { return info.param.label; });

}  // namespace
}  // namespace tavlero::testing
