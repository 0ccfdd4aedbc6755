// The keys on the board, over the case tables in tests/data/editing/.
#include "editing/keys.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "board_fixture.h"
#include "core/record.h"

namespace tavlero::testing {
namespace {

constexpr int16_t kDelete = 46;

class DeleteTest : public BoardTest, public ::testing::WithParamInterface<Case> {};

TEST_P(DeleteTest, AsksAndDeletesWithItsLinksOrChangesNothing) {
  const Case& d = GetParam();
  const auto cell = static_cast<int16_t>(std::stoi(d.at(1))), link = static_cast<int16_t>(std::stoi(d.at(2)));
  const MsgResult answer = d.at(3) == "Yes" ? MsgResult::Yes : MsgResult::No;
  const std::string& prompt = d.at(4);
  store.selectedCell = cell;
  store.selectedLink = link;
  world.ui.answers.push_back(answer);
  size_t image = imageSize();
  canvas_KeyDown(app, kDelete, 0);
  std::string plan;
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i)
    plan += field(i, "methodName") + "(" + store.getLongDescription(i) + ") ";
  for (const std::string& entry : store.linkList.items()) plan += getField(entry, "linkSource") + ">";
  EXPECT_EQ(std::tuple(world.ui.messages.empty() ? "" : world.ui.messages[0].prompt, plan,
                       store.sizeList.ListCount(), store.linkSizeList.ListCount()),
            std::tuple(prompt, d.at(5), store.itemList.ListCount(), store.linkList.ListCount()));
  bool deleted = answer == MsgResult::Yes && !prompt.empty();
  EXPECT_EQ(
      std::tuple(store.selectedCell, store.selectedLink, store.isSaved, imageSize() == image),
      deleted ? std::tuple(int16_t{-1}, int16_t{-1}, false, false) : std::tuple(cell, link, true, true));
}

INSTANTIATE_TEST_SUITE_P(Keys, DeleteTest, ::testing::ValuesIn(readCases("editing/delete_key.txt")));

class ColourKeyTest : public BoardTest, public ::testing::WithParamInterface<Case> {};

TEST_P(ColourKeyTest, SetsTheCurrentChoiceAndPaintsTheSelectedCell) {
  const Case& k = GetParam();
  store.selectedCell = k.at(3) == "1" ? a : int16_t{-1};
  size_t mark = imageSize();
  canvas_KeyDown(app, static_cast<int16_t>(std::stoi(k.at(1))), static_cast<int16_t>(std::stoi(k.at(2))));
  std::string painted;
  const auto& ops = world.canvas.Image().ops();
  for (size_t i = mark; i < ops.size(); ++i)
    if (ops[i].kind == DrawKind::Box)
      painted += std::to_string(ops[i].fillColor) + "/" + std::to_string(ops[i].fillStyle) + " ";
  EXPECT_EQ(std::tuple(store.currentColor, store.currentFillStyle,
                       field(a, "cellColor") + "/" + field(a, "cellFillStyle"), painted, store.isSaved,
                       drawnSince(mark, DrawKind::Circle)),
            std::tuple(std::stoi(k.at(4)), std::stoi(k.at(5)), k.at(6), k.at(7), k[7].empty(), size_t{0}));
}

INSTANTIATE_TEST_SUITE_P(Keys, ColourKeyTest, ::testing::ValuesIn(readCases("editing/colour_keys.txt")));

class KeyPressTest : public BoardTest, public ::testing::WithParamInterface<Case> {};

TEST_P(KeyPressTest, OpensTheDialogOrTheInfoViewOrZooms) {
  const Case& k = GetParam();
  store.actionKey = k.at(1);
  store.selectedCell = static_cast<int16_t>(std::stoi(k.at(3)));
  canvas_KeyPress(app, static_cast<int16_t>(std::stoi(k.at(2))));
  const bool dialog = k.at(4) == "1", info = k.at(5) == "1";
  EXPECT_EQ(std::tuple(app.addMethodForm != nullptr, app.methodInfoForm != nullptr, world.ui.enabled,
                       store.zoomFactor, store.isSaved),
            std::tuple(dialog, info, !(dialog || info), std::stof(k.at(6)), true));
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyPressTest, ::testing::ValuesIn(readCases("editing/key_press.txt")));

}  // namespace
}  // namespace tavlero::testing
