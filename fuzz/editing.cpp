// An editing session: a random sequence of presses, moves, releases, keys, dialog OKs and
// cancels, deletes, zooms, compressions, new projects and reads keeps every store
// invariant after each handler and leaves no link naming a missing cell after a redraw.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>

#include "board/board.h"
#include "board/compress.h"
#include "editing/gestures.h"
#include "editing/keys.h"
#include "editing/method_dialog.h"
#include "export/info_view.h"
#include "files/project_commands.h"
#include "files/project_file.h"
#include "fuzz_support.h"

using namespace tavlero;

namespace {

// A plan to start from, so that the session finds cells and links at once.
constexpr const char* kPlan =
    "<projectName>P</projectName>\r\n<minimumCellWidth>25</minimumCellWidth>\r\n"
    "<maximumCellWidth>50</maximumCellWidth>\r\n<nameFontSize>6</nameFontSize>\r\n"
    "<infoFontSize>4</infoFontSize>\r\n<fontName>Arial</fontName>\r\n"
    "<userMethod><positionX>5</positionX><positionY>5</positionY><methodName>A</methodName>"
    "<shortDescription>a</shortDescription><cellColor>255</cellColor><cellFillStyle>0</cellFillStyle>"
    "<longDescription>la</longDescription></userMethod>\r\n"
    "<userMethod><positionX>60</positionX><positionY>30</positionY><methodName>B</methodName>"
    "<shortDescription>b</shortDescription><cellColor>65280</cellColor><cellFillStyle>4</cellFillStyle>"
    "<longDescription>lb</longDescription></userMethod>\r\n"
    "<userLink><linkSource>A</linkSource><linkTarget>B</linkTarget></userLink>\r\n";

constexpr int16_t kKeys[] = {46, 116, 49, 50, 51, 52, 53, 54, 55, 56, 57, 65, 75};

float coordinate(FuzzedDataProvider& input) {
  if (input.ConsumeBool()) return input.ConsumeFloatingPoint<float>();
  return static_cast<float>(input.ConsumeIntegralInRange<int>(-20, 300));
}

void fillMethodForm(App& app, FuzzedDataProvider& input) {
  if (auto* form = dynamic_cast<testing::FakeMethodForm*>(app.addMethodForm.get())) {
    form->name = input.ConsumeRandomLengthString(40);
    form->summary = input.ConsumeRandomLengthString(40);
    form->description = input.ConsumeRandomLengthString(80);
  }
}

void step(fuzzing::StartedWorld& world, FuzzedDataProvider& input) {
  App& app = world.app;
  world.ui.answers = {static_cast<MsgResult>(input.ConsumeIntegralInRange<int>(0, 3))};
  auto button = input.ConsumeIntegralInRange<int16_t>(0, 4);
  auto shift = input.ConsumeIntegralInRange<int16_t>(0, 3);
  switch (input.ConsumeIntegralInRange<int>(0, 19)) {
    case 0:
      canvas_MouseDown(app, button, shift, coordinate(input), coordinate(input));
      break;
    case 1:
      canvas_MouseMove(app, button, shift, coordinate(input), coordinate(input));
      break;
    case 2:
      canvas_MouseUp(app, button, shift, coordinate(input), coordinate(input));
      break;
    case 3:
      canvas_KeyDown(app, input.PickValueInArray(kKeys), shift);
      break;
    case 4:
      canvas_KeyPress(app, input.ConsumeIntegral<uint8_t>());
      break;
    case 5:
      canvas_DblClick(app);
      break;
    case 6:
      openAddMethodForm(app);
      break;
    case 7:
      fillMethodForm(app, input);
      if (app.addMethodForm) addMethodForm_Command2_Click(app);
      break;
    case 8:
      if (app.addMethodForm) addMethodForm_Command1_Click(app);
      break;
    case 9:
      zoomIn(app);
      break;
    case 10:
      zoomOut(app);
      break;
    case 11:
      compress_Click(app);
      break;
    case 12:
      newproject_Click(app);
      break;
    case 13:
      readProjectFromText(app, input.ConsumeBool() ? kPlan : input.ConsumeRandomLengthString(400));
      break;
    case 14:
      setColorMenu_Click(app, input.ConsumeIntegralInRange<int>(0, 10));
      break;
    case 15:
      setFillMenu_Click(app, input.ConsumeIntegralInRange<int>(0, 8));
      break;
    case 16:
      resetview_Click(app);
      break;
    case 17:
      if (app.methodInfoForm) methodInfoForm_Command1_Click(app);
      break;
    case 18:
      if (app.addMethodForm) addMethodForm_longDescription_GotFocus(app);
      break;
    default:
      redrawBoard(app);
      fuzzing::requireLinksNameCells(app.store);
      break;
  }
  fuzzing::requireStoreInvariants(app.store);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fuzzing::InScratchFolder folder;
  FuzzedDataProvider input(data, size);
  fuzzing::StartedWorld world;
  readProjectFromText(world.app, kPlan);
  for (int steps = 0; steps < 200 && input.remaining_bytes() > 0; ++steps) step(world, input);
  redrawBoard(world.app);
  fuzzing::requireLinksNameCells(world.app.store);
  return 0;
}
