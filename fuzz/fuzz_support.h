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

// The process's one scratch folder, made the working folder too: the info page and every
// other file a handler writes land in it and nowhere else.
const testing::TempDir& scratch();

// A fake world started as the program starts, with its settings file in the scratch folder.
struct StartedWorld : testing::FakeWorld {
  StartedWorld();
};

// Parallel lists, the limits, valid selections.
void requireStoreInvariants(const ProjectStore& store);
// After a redraw every link names cells that exist.
void requireLinksNameCells(const ProjectStore& store);

// The whole reader state that a save writes, for comparing two reads.
bool sameProject(const ProjectStore& a, const ProjectStore& b);

}  // namespace tavlero::fuzzing
