// The headless tool reads plans on a canvas that measures no text, and draws nothing.
// Everything it writes must be what the desktop program writes after reading and drawing
// on the real Qt surface: every plan of the test data and the examples, through each
// command that draws nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "export/html_report.h"
#include "export/info_view.h"
#include "export/text_scheme.h"
#include "files/project_file.h"
#include "program/startup.h"
#include "qt/qt_surface.h"
#include "qt_test_app.h"
#include "test_support.h"

namespace tavlero::testing {
namespace {

struct Written {
  std::vector<std::string> messages;
  std::string project, scheme, clipboard, report, projectPage, methodPage;
  size_t leftOut = 0;
  auto fields() const {
    return std::tie(messages, project, scheme, clipboard, report, projectPage, methodPage, leftOut);
  }
};

Written readAndWrite(Surface& canvas, const std::string& plan, AfterReading after) {
  TempDir dir;
  FakePlatform world;
  App app(canvas, world.platform());
  Written out;
  Form_Load(app, dir.file("tavlero"), plan, dir.file("tavlero.cfg"), after);
  out.leftOut = app.store.leftOutAtReading;
  if (writeProject(app, dir.file("out.tvl"), "")) out.project = readFile(dir.file("out.tvl"));
  out.scheme = buildScheme(app.store, true);
  copySchemeText(app);
  out.clipboard = world.clipboard.text;
  out.report = buildHtmlReport(app.store);
  out.projectPage = infoPageFileText(app.store);
  app.store.selectedCell = 0;
  out.methodPage = infoPageFileText(app.store);
  for (const Message& message : world.ui.messages) out.messages.push_back(message.prompt);
  return out;
}

std::vector<std::string> plans() {
  std::vector<std::string> found;
  for (const std::string& root : {dataPath(""), std::string(TAVLERO_EXAMPLES)})
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
      if (entry.path().extension() == ".tvl") found.push_back(entry.path().string());
  return found;
}

TEST(Unmeasured, WritesWhatTheMeasuredCanvasWrites) {
  ensureQtApp();
  std::vector<std::string> all = plans();
  ASSERT_GT(all.size(), 20u);
  for (const std::string& plan : all) {
    SCOPED_TRACE(plan);
    QtSurface measured(96);
    UnmeasuredSurface unmeasured;
    Written desktop = readAndWrite(measured, plan, AfterReading::Draw);
    Written headless = readAndWrite(unmeasured, plan, AfterReading::RecordsOnly);
    EXPECT_EQ(headless.fields(), desktop.fields());
  }
}

}  // namespace
}  // namespace tavlero::testing
