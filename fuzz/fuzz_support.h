#pragma once
// What the fuzz targets share: a program started in a scratch folder of its own, and the
// checks of the store that must hold after any handler, each aborting under its own name
// so that a finding says what broke.

#include <cstddef>
#include <cstdint>
#include <string>

#include "core/project_store.h"
#include "test_support.h"

namespace tavlero::fuzzing {

// Prints what failed and aborts, so that libFuzzer keeps the input.
void require(bool condition, const char* what);

std::string textOf(const uint8_t* data, size_t size);

// The process's one scratch folder, for the settings file and whatever a handler writes.
const testing::TempDir& scratch();

// Makes the scratch folder the working folder while it lives, for the handlers that write
// beside it (the info page); libFuzzer reads its corpus by relative paths in between.
class InScratchFolder {
 public:
  InScratchFolder();
  ~InScratchFolder();
  InScratchFolder(const InScratchFolder&) = delete;
  InScratchFolder& operator=(const InScratchFolder&) = delete;

 private:
  int previous_;
};

// A fake world started as the program starts, with its settings file in the scratch folder.
struct StartedWorld : testing::FakeWorld {
  StartedWorld();
};

// Parallel lists, the limits, valid selections.
void requireStoreInvariants(const ProjectStore& store);
// After a redraw every link that names both its ends names cells that exist.
void requireLinksNameCells(const ProjectStore& store);

// The whole reader state that a save writes, for comparing two reads; records count as
// the same when they differ only in the white space round them.
bool sameProject(const ProjectStore& a, const ProjectStore& b);

}  // namespace tavlero::fuzzing
