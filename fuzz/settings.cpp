// Any bytes as the settings file: the start-up never changes a file that holds something,
// and whatever sizes and widths it gives, cells are drawn, zoomed and compressed without
// a fault or a hang.
#include <cstdint>

#include "board/board.h"
#include "board/compress.h"
#include "fuzz_support.h"

using namespace tavlero;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string bytes = fuzzing::textOf(data, size);
  std::string path = fuzzing::scratch().file("tavlero.cfg");
  testing::writeFile(path, bytes);

  fuzzing::StartedWorld world;
  if (!bytes.empty())
    fuzzing::require(testing::readFile(path) == bytes, "the start-up leaves the settings file as it was");
  world.addCell("Hovedprogram", 10, 10, "Starter alt", 255, 3, "Lang tekst");
  world.addCell("Beregn", 60, 40, "Regner ut");
  world.addLinkRecord("Hovedprogram", "Beregn");
  redrawBoard(world.app);
  zoomIn(world.app);
  compress_Click(world.app);
  zoomOut(world.app);
  fuzzing::requireStoreInvariants(world.app.store);
  fuzzing::requireLinksNameCells(world.app.store);
  return 0;
}
