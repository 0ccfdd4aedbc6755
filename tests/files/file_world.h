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
};

}  // namespace tavlero::testing
