#pragma once
// A fake world holding the plan of the worked examples, and a picture of everything an
// export must leave as it found it.

#include <string>
#include <vector>

#include "test_support.h"

namespace tavlero::testing {

// Butikk: Les (white, "Leser fil", "Åpner filen.") uses Sjekk (red, "Sjekker").
void loadExample(FakeWorld& world);

// The expected bytes of the worked example's outputs.
std::string exampleFile(const std::string& name);

struct ProjectSnapshot {
  std::vector<std::string> items, sizes, links, linkSizes, longDescriptions;
  std::string programName, programDescription, projectFileName, projectFolder;
  int16_t selectedCell, selectedLink;
  bool isSaved;
  float zoomFactor, canvasLeft, canvasTop, canvasWidth, canvasHeight;
  size_t drawn;
  bool operator==(const ProjectSnapshot&) const = default;
};

ProjectSnapshot snapshotOf(FakeWorld& world);

}  // namespace tavlero::testing
