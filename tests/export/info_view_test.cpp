#include "export/info_view.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "export_fixture.h"

namespace tavlero::testing {
namespace {

namespace fs = std::filesystem;

// The info view writes into the current folder: each test gets its own.
class InfoView : public ::testing::Test {
 protected:
  void SetUp() override {
    previous_ = fs::current_path();
    fs::current_path(dir_.path());
    folder_ = fs::current_path().string() + "/";
  }
  void TearDown() override { fs::current_path(previous_); }

  std::string page() const { return folder_ + "TavleroTemp.html"; }

  TempDir dir_;
  fs::path previous_;
  std::string folder_;
  FakeWorld world_;
};

TEST_F(InfoView, ProjectPageLivesExactlyAsLongAsTheView) {
  loadExample(world_);
  world_.app.store.selectedLink = 0;  // a selected link still gives the project page
  showMethodInfo(world_.app);

  FakeMethodInfo* form = world_.forms.lastMethodInfo;
  ASSERT_NE(form, nullptr);
  EXPECT_TRUE(form->shown);
  EXPECT_FALSE(world_.ui.enabled);
  EXPECT_EQ(world_.app.store.infoPageFolder, folder_);
  EXPECT_EQ(form->navigations, std::vector<std::string>{page()});
  EXPECT_EQ(form->focus, 1);
  EXPECT_EQ(readFile(page()), exampleFile("info_project.html"));

  methodInfoForm_Command1_Click(world_.app);
  EXPECT_FALSE(fs::exists(page()));
  EXPECT_TRUE(world_.ui.enabled);
  EXPECT_EQ(world_.ui.focusCalls, 1);
  EXPECT_FALSE(form->shown);
  EXPECT_EQ(form->navigations.back(), "");
}

TEST_F(InfoView, SelectedCellShowsItsOwnSection) {
  loadExample(world_);
  world_.app.store.selectedCell = 0;
  showMethodInfo(world_.app);
  EXPECT_EQ(readFile(page()), exampleFile("info_les.html"));
}

TEST_F(InfoView, WithoutMethodsThePageHoldsNameAndDescription) {
  world_.app.store.programName = "Tom";
  world_.app.store.programDescription = "Ingenting her";
  showMethodInfo(world_.app);
  EXPECT_EQ(readFile(page()),
            "<html><body><h1>Tom</h1><big><pre>Ingenting her</pre></big><hr /></body></html>\r\n");
}

TEST_F(InfoView, EachOpeningWritesThePageAnewOverAnOldFile) {
  writeFile(page(), "an old page");
  world_.app.store.programName = "Forst";
  showMethodInfo(world_.app);
  methodInfoForm_Command1_Click(world_.app);
  world_.app.store.programName = "Siden";
  showMethodInfo(world_.app);
  EXPECT_NE(readFile(page()).find("<h1>Siden</h1>"), std::string::npos);
  methodInfoForm_Command1_Click(world_.app);
  EXPECT_FALSE(fs::exists(page()));
}

TEST_F(InfoView, OkKeepsTheFormAndClosingByTheFrameLetsItGo) {
  showMethodInfo(world_.app);
  FakeMethodInfo* first = world_.forms.lastMethodInfo;
  methodInfoForm_Command1_Click(world_.app);
  showMethodInfo(world_.app);
  EXPECT_EQ(world_.forms.lastMethodInfo, first);

  methodInfoForm_Form_QueryUnload(world_.app);
  EXPECT_EQ(world_.app.methodInfoForm, nullptr);
  EXPECT_TRUE(world_.ui.enabled);
  EXPECT_FALSE(fs::exists(page()));
  showMethodInfo(world_.app);
  EXPECT_NE(world_.forms.lastMethodInfo, nullptr);
  EXPECT_TRUE(world_.forms.lastMethodInfo->shown);
}

TEST_F(InfoView, PageThatCannotBeWrittenLeavesMainEnabled) {
  fs::create_directory(page());  // a folder of that name can't be replaced by a file
  showMethodInfo(world_.app);
  EXPECT_TRUE(world_.ui.enabled);
  EXPECT_EQ(world_.app.methodInfoForm, nullptr);
  ASSERT_EQ(world_.ui.messages.size(), 1u);
  EXPECT_NE(world_.ui.messages[0].prompt.find("TavleroTemp.html"), std::string::npos);
  EXPECT_TRUE(world_.app.store.infoPageFolder.empty());
}

struct ResizeCase {
  float width, height;
  float buttonLeft, buttonTop, browserWidth, browserHeight;
};

class InfoViewResize : public InfoView, public ::testing::WithParamInterface<ResizeCase> {};

TEST_P(InfoViewResize, CentresTheButtonOnTheOuterWidth) {
  showMethodInfo(world_.app);
  FakeMethodInfo* form = world_.forms.lastMethodInfo;
  form->width = GetParam().width;
  form->height = GetParam().height;
  methodInfoForm_Form_Resize(world_.app);
  EXPECT_FLOAT_EQ(form->buttonLeft, GetParam().buttonLeft);
  EXPECT_FLOAT_EQ(form->buttonTop, GetParam().buttonTop);
  EXPECT_FLOAT_EQ(form->browserWidth, GetParam().browserWidth);
  EXPECT_FLOAT_EQ(form->browserHeight, GetParam().browserHeight);
}

INSTANTIATE_TEST_SUITE_P(Sizes, InfoViewResize,
                         ::testing::Values(ResizeCase{11625, 9225, 5205, 7995, 11145, 7515},
                                           ResizeCase{3001, 2000, 893, 770, 2521, 290},
                                           ResizeCase{300, 200, -457.5f, -1030, -180, -1510}));

}  // namespace
}  // namespace tavlero::testing
