#include <gtest/gtest.h>

#include <tuple>

#include "core/cp1252.h"
#include "core/project_store.h"

namespace tavlero {
namespace {

TEST(StringList, StaleIndicesReachNothingAndTheLimitHolds) {
  StringList list;
  for (const char* s : {"0", "1", "2", "3", "4", "5"}) list.AddItem(s);
  list.RemoveItems({0, 2, 3});
  list.RemoveItem(0);
  EXPECT_EQ(std::tuple(list.items(), list.List(5)), std::tuple(std::vector<std::string>{"4", "5"}, ""));
  list.setList(-1, "x");
  list.RemoveItem(9);
  EXPECT_EQ(list.ListCount(), 2);
  while (list.AddItem("")) {
  }
  EXPECT_EQ(list.ListCount(), StringList::kMaxCount);
}

TEST(LongDescriptions, RemovalPullsTheSlotsAboveDown) {
  ProjectStore store;
  for (int i = 0; i < 3; ++i) {
    store.itemList.AddItem("<methodName>" + std::to_string(i) + "</methodName>");
    store.setLongDescription(static_cast<int16_t>(i), "d" + std::to_string(i));
  }
  store.setLongDescription(3, "slot 3");
  store.itemList.RemoveItem(0);
  store.removeLongDescription(0);
  // The last source keeps its text.
  EXPECT_EQ(std::vector({store.getLongDescription(0), store.getLongDescription(1),
                         store.getLongDescription(2), store.getLongDescription(3)}),
            std::vector<std::string>({"d1", "d2", "slot 3", "slot 3"}));
  // The table has 32,001 slots and nothing reaches outside them.
  store.setLongDescription(32000, "last");
  store.setLongDescription(-1, "x");
  EXPECT_EQ(std::tuple(store.getLongDescription(32000), store.getLongDescription(32001)),
            std::tuple("last", ""));
}

TEST(LongDescriptions, LookupByRecordTextFindsTheFirstEqualRecord) {
  ProjectStore store;
  store.itemList.AddItem("<methodName>same</methodName>");
  store.itemList.AddItem("<methodName>same</methodName>");
  store.setLongDescription(0, "first");
  store.setLongDescription(1, "second");
  EXPECT_EQ(store.getField("<methodName>same</methodName>", "longDescription"), "first");
  // A record not in the list falls through to the tag search.
  EXPECT_EQ(store.getField("<longDescription>inline</longDescription>", "longDescription"), "inline");
  EXPECT_EQ(store.getField("", "longDescription"), "");
}

TEST(Cp1252, RoundTripsEveryByteThroughUnicode) {
  std::string all;
  for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
  EXPECT_EQ(utf8ToCp1252(cp1252ToUtf8(all)), all);
  EXPECT_EQ(cp1252ToUtf8("\xE6\xF8\xE5\x80"), "æøå€");
  EXPECT_EQ("Fremgangsmåte:"_cp, "Fremgangsm\xE5te:");
  // Characters outside the code page, and broken UTF-8, become '?'.
  EXPECT_EQ(utf8ToCp1252("a\xE2\x86\x92"
                         "b\xC3"),
            "a?b?");
  EXPECT_EQ(utf8ToCp1252("\xFF\xFE"), "??");
}

}  // namespace
}  // namespace tavlero
