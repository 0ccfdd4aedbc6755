#pragma once
// A fake world with a temporary folder that holds the settings file, for the file tests.

#include "test_support.h"

namespace tavlero::testing {

struct FileWorld : FakeWorld {
  TempDir dir;

  FileWorld() { app.store.settingsPath = dir.file("tavlero.cfg"); }
};

}  // namespace tavlero::testing
