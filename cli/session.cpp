#include <algorithm>
#include <filesystem>

#include "cli.h"
#include "core/cp1252.h"
#include "program/startup.h"

namespace tavlero::cli {

namespace {

std::vector<Command>& table() {
  static std::vector<Command> commands;
  return commands;
}

}  // namespace

Session::Session(std::string programPath, std::string settingsPath, bool measured)
    : programPath_(std::move(programPath)),
      settingsPath_(std::move(settingsPath)),
      measured_(measured),
#ifdef TAVLERO_CLI_DRAWS
      canvas_(measured ? std::unique_ptr<Surface>(std::make_unique<QtSurface>())
                       : std::make_unique<UnmeasuredSurface>()),
#else
      canvas_(std::make_unique<UnmeasuredSurface>()),
#endif
      app_(*canvas_, Platform{ui_, dialog_, clipboard_, pictures_, printer_, forms_}) {
}

void Session::start() {
  Form_Load(app_, programPath_, "", settingsPath_);
}

bool Session::open(const std::string& in) {
  // The program makes an empty plan for a new name; a tool that only reads a plan must
  // not leave one behind where there was none.
  std::error_code error;
  if (!std::filesystem::exists(in, error)) {
    app_.platform.ui.MsgBox("En feil oppstod under åpning av filen: '"_cp + utf8ToCp1252(in) + "'",
                            MsgButtons::OK, MsgIcon::Critical, "Gale parametre");
    return false;
  }
  // A canvas that measures nothing serves outputs made from the records alone.
  return Form_Load(app_, programPath_, in, settingsPath_,
                   measured_ ? AfterReading::Draw : AfterReading::RecordsOnly);
}

int Session::done() const {
  return app_.store.leftOutAtReading > 0 ? kExitProblems : kExitDone;
}

RegisterCommand::RegisterCommand(const Command& command) {
  table().push_back(command);
}

std::vector<Command> registeredCommands() {
  std::vector<Command> commands = table();
  std::sort(commands.begin(), commands.end(),
            [](const Command& a, const Command& b) { return a.name < b.name; });
  return commands;
}

int usageError(const std::string& message) {
  printMessage(message + " (se tavlero-cli --help)");
  return kExitFailure;
}

bool takeFlag(std::vector<std::string>& args, std::string_view flag) {
  auto it = std::find(args.begin(), args.end(), flag);
  if (it == args.end()) return false;
  args.erase(it);
  return true;
}

std::optional<std::string> takeOption(std::vector<std::string>& args, std::string_view name, bool& missing) {
  missing = false;
  auto it = std::find(args.begin(), args.end(), name);
  if (it == args.end()) return std::nullopt;
  if (it + 1 == args.end()) {
    missing = true;
    args.erase(it);
    return std::nullopt;
  }
  std::string value = *(it + 1);
  args.erase(it, it + 2);
  return value;
}

}  // namespace tavlero::cli
