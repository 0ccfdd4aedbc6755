// tavlero-cli: the parts of Tavlero that need no display, one command per run.

#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "cli.h"

namespace {

using namespace tavlero::cli;

void printUsage(std::FILE* out) {
  std::fprintf(out, "Bruk: tavlero-cli KOMMANDO [--settings FIL] ARGUMENTER\n\n");
  for (const Command& command : registeredCommands()) {
    std::string head = std::string(command.name) + " " + std::string(command.arguments);
    std::fprintf(out, "  %-40s %s\n", head.c_str(), std::string(command.summary).c_str());
  }
  std::fprintf(
      out,
      "\n  --settings FIL   bruk FIL som innstillingsfil (lages med standardverdier hvis den mangler\n"
      "                   eller er tom) i stedet for tavlero.cfg ved siden av programmet\n"
      "\n  UT som - skriver til standard ut.\n"
      "\nAvslutningskode: 0 ferdig, 1 check fant problemer eller planen hadde flere metoder eller\n"
      "koblinger enn den kan holde (arbeidet er gjort), 2 feil bruk eller en fil som ikke kan\n"
      "leses eller skrives.\n");
}

// Qt's own chatter would mix with the tool's one-line messages.
void quietQt(QtMsgType, const QMessageLogContext&, const QString&) {}

std::string programPath(const char* argv0) {
  std::error_code ec;
  std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (!ec) return self.string();
  return std::filesystem::absolute(argv0, ec).string();
}

int run(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) {
    printUsage(stderr);
    return kExitFailure;
  }
  if (args[0] == "--help" || args[0] == "-h") {
    printUsage(stdout);
    return kExitDone;
  }
  bool missing = false;
  std::string settings = takeOption(args, "--settings", missing).value_or("");
  if (missing) return usageError("--settings mangler filnavn.");
  if (args.empty()) return usageError("Kommando mangler.");
  std::string name = args.front();
  args.erase(args.begin());
  for (const Command& command : registeredCommands()) {
    if (command.name != name) continue;
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    qInstallMessageHandler(quietQt);
    // Qt is given no arguments of ours: a project named like a Qt option stays a project.
    int qtArgc = 1;
    char* qtArgv[] = {argv[0], nullptr};
    QGuiApplication qt(qtArgc, qtArgv);
    Session session(programPath(argv[0]), settings);
    return command.run(session, args);
  }
  return usageError("Ukjent kommando: " + name + ".");
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    printMessage(std::string("Uventet feil: ") + error.what());
  } catch (...) {
    printMessage("Uventet feil.");
  }
  return kExitFailure;
}
