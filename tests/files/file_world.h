#pragma once
// A fake world with a temporary folder that holds the settings file, for the file tests.

#include <string>
#include <vector>

#include "core/record.h"
#include "test_support.h"

namespace tavlero::testing {

struct FileWorld : FakeWorld {
  TempDir dir;

  FileWorld() { app.store.settingsPath = dir.file("tavlero.cfg"); }

  std::vector<std::string> methodNames() const {
    std::vector<std::string> names;
    for (const auto& record : app.store.itemList.items()) names.push_back(getField(record, "methodName"));
    return names;
  }
  std::vector<std::string> longDescriptions() const {
    std::vector<std::string> texts;
    for (int16_t i = 0; i < app.store.itemList.ListCount(); ++i)
      texts.push_back(app.store.getLongDescription(i));
    return texts;
  }
  size_t messagesTitled(const std::string& title) const {
    size_t count = 0;
    for (const auto& message : ui.messages) count += message.title == title;
    return count;
  }
};

inline const char* kParsingProblem =
    "Det oppstod problemer under parsing. Dokumentet vil antakelig ikke vises riktig.";

}  // namespace tavlero::testing
