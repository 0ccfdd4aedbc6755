#include "export/info_dialogs.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace tavlero::testing {
namespace {

TEST(ProgramInfo, EditsInPlaceAndOkAlwaysCountsAsAChange) {
  FakeWorld world;
  world.app.store.programName = "Gammel";
  editClass_Click(world.app);
  FakeProgramInfo& form = world.forms.programInfo;
  EXPECT_FALSE(world.ui.enabled);
  EXPECT_TRUE(form.shown);
  EXPECT_EQ(form.name, "Gammel");

  programInfoForm_programName_Change(world.app, "");
  programInfoForm_programDescription_Change(world.app, "linje 1\r\nlinje 2");
  EXPECT_EQ(world.app.store.programName, "");
  EXPECT_EQ(world.app.store.programDescription, "linje 1\r\nlinje 2");

  programInfoForm_Command1_Click(world.app);
  EXPECT_TRUE(world.ui.enabled);
  EXPECT_EQ(world.ui.focusCalls, 1);
  EXPECT_FALSE(form.shown);
  EXPECT_FALSE(world.app.store.isSaved);

  world.app.store.isSaved = true;
  editClass_Click(world.app);
  programInfoForm_Command1_Click(world.app);
  EXPECT_FALSE(world.app.store.isSaved);
}

TEST(ProgramInfo, ReopeningShowsTheTextsAsTheyStandNow) {
  FakeWorld world;
  editClass_Click(world.app);
  programInfoForm_Command1_Click(world.app);
  world.app.store.programName = "Lest inn";
  world.app.store.programDescription = "fra fil";
  editClass_Click(world.app);
  EXPECT_EQ(world.forms.programInfo.name, "Lest inn");
  EXPECT_EQ(world.forms.programInfo.description, "fra fil");
}

TEST(ProgramInfo, DescriptionFocusEndsTheDefaultButtonForGood) {
  FakeWorld world;
  editClass_Click(world.app);
  EXPECT_TRUE(world.forms.programInfo.okDefault);
  programInfoForm_programDescription_GotFocus(world.app);
  EXPECT_FALSE(world.forms.programInfo.okDefault);
  programInfoForm_Command1_Click(world.app);
  editClass_Click(world.app);
  EXPECT_FALSE(world.forms.programInfo.okDefault);
}

TEST(About, ClosingChangesNothingInTheProject) {
  FakeWorld world;
  aboutmenu_Click(world.app);
  FakeAbout* about = world.forms.lastAbout;
  ASSERT_NE(about, nullptr);
  EXPECT_TRUE(about->shown);
  EXPECT_FALSE(world.ui.enabled);
  aboutForm_Command1_Click(world.app);
  EXPECT_TRUE(world.ui.enabled);
  EXPECT_EQ(world.ui.focusCalls, 1);
  EXPECT_EQ(world.app.aboutForm, nullptr);
  EXPECT_TRUE(world.app.store.isSaved);

  aboutmenu_Click(world.app);
  EXPECT_NE(world.app.aboutForm, nullptr);
}

}  // namespace
}  // namespace tavlero::testing
