// The example plans a newcomer opens first: each reads without a problem for the checker,
// is a real plan (8 to 25 methods, links, colours and fills), and shows every cell in the
// start window at zoom 1.0 and most of them at the start zoom.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <tuple>

#include "files/project_check.h"
#include "files/save_file.h"
#include "qt_world.h"

namespace tavlero::testing {
namespace {

class ExampleTest : public ::testing::TestWithParam<std::string> {};

// Cells whose drawn box lies wholly in main's client area, at the current zoom.
int cellsInWindow(QtWorld& world) {
  const QRectF window(0, 0, world.canvas.mmToPixels(world.ui.clientWidth),
                      world.canvas.mmToPixels(world.ui.clientHeight));
  int inside = 0;
  for (int16_t cell = 0; cell < world.app.store.itemList.ListCount(); ++cell)
    inside += window.contains(world.cellPixels(cell));
  return inside;
}

TEST_P(ExampleTest, IsARealPlanThatFitsTheStartWindow) {
  const std::string path = std::string(TAVLERO_EXAMPLES) + "/" + GetParam();
  std::string text;
  ASSERT_EQ(readWholeFile(path, text), FileError::None);
  EXPECT_THAT(checkProject(text), ::testing::IsEmpty());

  QtWorld world;
  world.startCanvas();
  ASSERT_TRUE(readProject(world.app, path));
  const ProjectStore& store = world.app.store;
  const int cells = store.itemList.ListCount();
  EXPECT_THAT(cells, ::testing::AllOf(::testing::Ge(8), ::testing::Le(25)));
  EXPECT_GE(store.linkList.ListCount(), 5);
  std::set<std::string> colours, fills;
  for (int16_t cell = 0; cell < cells; ++cell) {
    colours.insert(getField(store.itemList.List(cell), "cellColor"));
    fills.insert(getField(store.itemList.List(cell), "cellFillStyle"));
    const std::string description = store.getLongDescription(cell);
    EXPECT_GE(std::count(description.begin(), description.end(), '\n'), 2)
        << getField(store.itemList.List(cell), "methodName");
  }
  EXPECT_GE(colours.size(), 4u);
  EXPECT_GE(fills.size(), 3u);

  EXPECT_GT(2 * cellsInWindow(world), cells) << "most cells at the start zoom";
  zoomOut(world.app);
  zoomOut(world.app);
  EXPECT_EQ(std::tuple(world.app.store.zoomFactor, cellsInWindow(world)), std::tuple(1.0f, cells))
      << "every cell at zoom 1.0";
}

std::vector<std::string> examples() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(TAVLERO_EXAMPLES))
    if (entry.path().extension() == ".tvl") names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleTest, ::testing::ValuesIn(examples()), [](const auto& testCase) {
  return std::filesystem::path(testCase.param).stem().string();
});

}  // namespace
}  // namespace tavlero::testing
