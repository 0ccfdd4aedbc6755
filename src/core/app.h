#pragma once
// The running program as the logic sees it: the one project store, the canvas, and the
// platform it talks through. Every handler of every subsystem takes an App.

#include <memory>
#include <string>

#include "core/drawing_memo.h"
#include "core/geometry_index.h"
#include "core/project_store.h"
#include "platform/common_dialog.h"
#include "platform/forms.h"
#include "platform/outputs.h"
#include "platform/surface.h"
#include "platform/ui.h"

namespace tavlero {

// The hollow rectangle that follows a dragged cell, in board units of the canvas.
struct DemoRectangle {
  float Left = 0;
  float Top = 0;
  float Width = 0;
  float Height = 0;
  bool Visible = false;
};

struct Platform {
  Ui& ui;
  CommonDialog& commonDialog;
  Clipboard& clipboard;
  PictureWriter& pictures;
  Printer& printer;
  FormFactory& forms;
};

class App {
 public:
  App(Surface& surface, Platform services) : canvas(surface), platform(services) {}

  ProjectStore store;
  Surface& canvas;
  Platform platform;

  DemoRectangle demoRectangle;

  // The geometry lists as hit testing reads them, parsed again only after a change.
  GeometryIndex cellHits;
  GeometryIndex linkHits;

  // The last drawings of the cells and links, which a redraw copies where it can.
  DrawingMemo drawingMemo;

  // Forms while they are open; empty when closed.
  std::unique_ptr<MethodFormView> addMethodForm;
  std::unique_ptr<MethodInfoView> methodInfoForm;
  std::unique_ptr<AboutView> aboutForm;
};

}  // namespace tavlero
