#include "export_fixture.h"

#include "core/cp1252.h"

namespace tavlero::testing {

void loadExample(FakeWorld& world) {
  world.app.store.programName = "Butikk";
  world.app.store.programDescription = "Kasse og lager";
  world.addCell("Les", 10, 10, "Leser fil", 16777215, 0, "Åpner filen."_cp);
  world.addCell("Sjekk", 80, 10, "Sjekker", 255);
  world.addLinkRecord("Les", "Sjekk");
}

std::string exampleFile(const std::string& name) {
  return readFile(dataPath("export/example/" + name));
}

ProjectSnapshot snapshotOf(FakeWorld& world) {
  const ProjectStore& store = world.app.store;
  ProjectSnapshot shot{store.itemList.items(),
                       store.sizeList.items(),
                       store.linkList.items(),
                       store.linkSizeList.items(),
                       {},
                       store.programName,
                       store.programDescription,
                       store.projectFileName,
                       store.projectFolder,
                       store.selectedCell,
                       store.selectedLink,
                       store.isSaved,
                       store.zoomFactor,
                       world.canvas.Left(),
                       world.canvas.Top(),
                       world.canvas.Width(),
                       world.canvas.Height(),
                       world.canvas.Image().size()};
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i)
    shot.longDescriptions.push_back(store.getLongDescription(i));
  return shot;
}

}  // namespace tavlero::testing
