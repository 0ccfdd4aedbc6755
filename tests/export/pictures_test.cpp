#include "export/pictures.h"

#include <gtest/gtest.h>

#include "export_fixture.h"

namespace tavlero::testing {
namespace {

// Refuses the picture the way the Qt clipboard does for a board too large to render.
class RefusingClipboard : public FakeClipboard {
 public:
  bool SetPicture(const Surface&, std::string& error) override {
    error = "Brettet er for stort til å bli et bilde.";
    return false;
  }
};

TEST(Pictures, CopyClearsTheClipboardBeforeThePicture) {
  FakeWorld world;
  world.clipboard.SetText("old text");
  copyBoardPicture(world.app);
  EXPECT_EQ(world.clipboard.clears, 1);
  EXPECT_FALSE(world.clipboard.hasText);
  EXPECT_EQ(world.clipboard.pictures, 1);
  EXPECT_TRUE(world.ui.messages.empty());
}

TEST(Pictures, RefusedPictureIsTold) {
  FakeWorld world;
  RefusingClipboard refusing;
  App app(world.canvas,
          Platform{world.ui, world.dialog, refusing, world.pictures, world.printer, world.forms});
  copyBoardPicture(app);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.ui.messages[0].prompt.rfind("Brettet er for stort", 0), 0u);
}

TEST(Pictures, SaveGoesToTheChosenPathWithTheBmpFilter) {
  FakeWorld world;
  world.dialog.saveAnswers.push_back("/bilder/brett.bmp");
  saveBoardPicture(world.app);
  EXPECT_EQ(world.pictures.paths, std::vector<std::string>{"/bilder/brett.bmp"});
  EXPECT_EQ(world.dialog.filtersSeen, std::vector<std::string>{"Punktgrafikk (*.bmp)|*.bmp"});
  EXPECT_EQ(world.dialog.DefaultExt, "*.bmp");
}

TEST(Pictures, CancelSavesNothing) {
  FakeWorld world;
  saveBoardPicture(world.app);
  EXPECT_TRUE(world.pictures.paths.empty());
  EXPECT_TRUE(world.ui.messages.empty());
}

TEST(Pictures, FailedSaveNamesTheFile) {
  FakeWorld world;
  world.pictures.fail = true;
  world.dialog.saveAnswers.push_back("/bilder/brett.bmp");
  saveBoardPicture(world.app);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_NE(world.ui.messages[0].prompt.find("'/bilder/brett.bmp'"), std::string::npos);
}

TEST(Pictures, PrintWithoutPrinterSaysSo) {
  FakeWorld world;
  printproject_Click(world.app);
  EXPECT_EQ(world.printer.printed, 1);
  EXPECT_TRUE(world.ui.messages.empty());

  world.printer.fail = true;
  printproject_Click(world.app);
  ASSERT_EQ(world.ui.messages.size(), 1u);
  EXPECT_EQ(world.ui.messages[0].prompt, "Fant ingen skriver. Utskriften ble ikke laget.");
}

}  // namespace
}  // namespace tavlero::testing
