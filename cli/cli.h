#pragma once
// The headless tool's framework: a session that starts as the program starts, and a
// table of commands that each file of cli/ adds to with one RegisterCommand object.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/app.h"
#include "headless_platform.h"
#include "platform/surface.h"
#ifdef TAVLERO_CLI_DRAWS
#include "qt/qt_outputs.h"
#include "qt/qt_surface.h"
#endif

namespace tavlero::cli {

inline constexpr int kExitDone = 0;
inline constexpr int kExitProblems = 1;  // check found something, or a plan was read beyond the limits
inline constexpr int kExitFailure = 2;   // bad usage, or a file that cannot be read or written

// One program start: the headless platform, the canvas, the App.
class Session {
 public:
  // settingsPath empty: tavlero.cfg beside the program. measured: a canvas with the
  // machine's real text measures, which needs a running QGuiApplication.
  Session(std::string programPath, std::string settingsPath, bool measured);

  App& app() { return app_; }
  HeadlessClipboard& clipboard() { return clipboard_; }
  const std::string& programPath() const { return programPath_; }
  const std::string& settingsPath() const { return settingsPath_; }

  // Starts as the program starts with no project: defaults, settings file, start-up zoom.
  void start();
  // Starts and reads in as the program reads a project named on its command line. False,
  // after the program's message on standard error, when in cannot be read.
  bool open(const std::string& in);
  // The exit status of a command whose work is done: a plan read beyond what it can hold
  // makes it kExitProblems, so a script never loses methods without noticing.
  int done() const;

 private:
  std::string programPath_;
  std::string settingsPath_;
  bool measured_;
  std::unique_ptr<Surface> canvas_;
  HeadlessUi ui_;
  HeadlessDialog dialog_;
  HeadlessClipboard clipboard_;
#ifdef TAVLERO_CLI_DRAWS
  QtPictureWriter pictures_;
#else
  HeadlessPictures pictures_;
#endif
  HeadlessPrinter printer_;
  HeadlessForms forms_;
  App app_;
};

// args: what followed the command's name, less the common options.
using CommandRun = int (*)(Session& session, std::vector<std::string>& args);

struct Command {
  std::string_view name;
  std::string_view arguments;  // as shown in the usage text, e.g. "IN.tvl OUT.tvl"
  std::string_view summary;
  CommandRun run;
  // Draws a picture: the canvas needs Qt and the machine's fonts, which only
  // tavlero-cli-picture has.
  bool draws = false;
};

// A static object of this type in a file of cli/ adds its command to the table.
class RegisterCommand {
 public:
  explicit RegisterCommand(const Command& command);
};

// The table, sorted by name.
std::vector<Command> registeredCommands();

// Prints the message and a pointer to the usage text; gives kExitFailure.
int usageError(const std::string& message);

// Removes "flag" from args; true when it was there.
bool takeFlag(std::vector<std::string>& args, std::string_view flag);
// Removes "name VALUE" from args and gives VALUE. Nothing when absent; an empty optional
// also when the value is missing, with missing set.
std::optional<std::string> takeOption(std::vector<std::string>& args, std::string_view name, bool& missing);

}  // namespace tavlero::cli
