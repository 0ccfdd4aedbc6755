// tavlero-cli: the parts of Tavlero that need no display, one command per run.

#ifdef TAVLERO_CLI_DRAWS
#include <QGuiApplication>
#endif
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <string_view>

#include "cli.h"

namespace {

using namespace tavlero::cli;

// Prints text from column indent on, broken at blanks so no line passes 80 columns.
void printWrapped(std::FILE* out, std::string_view text, size_t indent) {
  constexpr size_t kColumns = 80;
  size_t column = indent;
  std::fprintf(out, "%*s", static_cast<int>(indent), "");
  while (!text.empty()) {
    size_t end = text.find(' ');
    std::string_view word = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    // Columns are characters: count the UTF-8 lead bytes only.
    size_t width = 0;
    for (char c : word) width += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    if (column > indent && column + 1 + width > kColumns) {
      std::fprintf(out, "\n%*s", static_cast<int>(indent), "");
      column = indent;
    }
    if (column > indent) {
      std::fputc(' ', out);
      ++column;
    }
    std::fwrite(word.data(), 1, word.size(), out);
    column += width;
  }
  std::fputc('\n', out);
}

void printUsage(std::FILE* out) {
  std::fprintf(out,
               "Bruk: tavlero-cli KOMMANDO [--settings FIL] ARGUMENTER\n"
               "      tavlero-cli --help | --version\n\nKommandoer:\n");
  for (const Command& command : registeredCommands()) {
    std::fprintf(out, "  %s %s\n", std::string(command.name).c_str(), std::string(command.arguments).c_str());
    printWrapped(out, command.summary, 6);
  }
  std::fprintf(out, "\nFelles valg:\n  --settings FIL\n");
  printWrapped(out,
               "bruk FIL som innstillingsfil (lages med standardverdier hvis den mangler eller er tom) i "
               "stedet for tavlero.cfg ved siden av programmet",
               6);
  std::fputc('\n', out);
  printWrapped(out, "UT som - skriver til standard ut.", 2);
  std::fprintf(out, "\nAvslutningskode:\n");
  printWrapped(out, "0  ferdig", 2);
  printWrapped(out, "1  check fant problemer, eller planen gikk over grensene (arbeidet er gjort)", 2);
  printWrapped(out, "2  feil bruk, eller en fil som ikke kan leses eller skrives", 2);
  std::fprintf(out, "\nEn melding som programmet ville vist i en boks, skrives på standard feil.\n");
}

#ifdef TAVLERO_CLI_DRAWS
// Qt's own chatter would mix with the tool's one-line messages.
void quietQt(QtMsgType, const QMessageLogContext&, const QString&) {}

// Only a picture needs Qt; the other commands start faster without it.
std::unique_ptr<QGuiApplication> startQt(char* program) {
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  qInstallMessageHandler(quietQt);
  // Qt is given no arguments of ours: a project named like a Qt option stays a project.
  static int argc = 1;
  static char* argv[] = {program, nullptr};
  auto application = std::make_unique<QGuiApplication>(argc, argv);
  // Numbers in a plan have a decimal point, whatever locale Qt took from the user.
  std::setlocale(LC_NUMERIC, "C");
  return application;
}
#endif

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
  if (args[0] == "--version") {
    std::printf("Tavlero versjon %s\n", TAVLERO_VERSION);
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
#ifdef TAVLERO_CLI_DRAWS
    auto qt = command.draws ? startQt(argv[0]) : nullptr;
#endif
    // Never freed: the system takes a large plan's memory back at once at the exit, where
    // freeing its records one by one would only delay it. Held by a static, so that a leak
    // checker sees it still reachable.
    static Session* const session = new Session(programPath(argv[0]), settings, command.draws);
    return command.run(*session, args);
  }
  return usageError("Ukjent kommando: " + name + ".");
}

// A plan's records take many thousands of small blocks. The heap grows in large steps, and
// asks for large pages under it, so that the system maps it 2 MB at a time instead of
// faulting in each 4 KB page as the records are read.
void largePagedHeap() {
  constexpr size_t kStep = size_t{64} << 20;
  constexpr uintptr_t kLargePage = uintptr_t{2} << 20;
  mallopt(M_TOP_PAD, static_cast<int>(kStep));
  mallopt(M_TRIM_THRESHOLD, static_cast<int>(2 * kStep));
  const auto before = reinterpret_cast<uintptr_t>(sbrk(0));
  // Two blocks below the size that malloc maps on its own, more than the heap holds at
  // start; volatile, as a compiler may leave out a block that nothing uses.
  constexpr size_t kBlock = size_t{120} << 10;
  void* volatile first = malloc(kBlock);
  void* volatile second = malloc(kBlock);
  free(second);
  free(first);
  const auto after = reinterpret_cast<uintptr_t>(sbrk(0));
  const uintptr_t start = (before + kLargePage - 1) & ~(kLargePage - 1);
  if (after > start + kLargePage) madvise(reinterpret_cast<void*>(start), after - start, MADV_HUGEPAGE);
}

}  // namespace

int main(int argc, char** argv) {
  largePagedHeap();
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    printMessage(std::string("Uventet feil: ") + error.what());
  } catch (...) {
    printMessage("Uventet feil.");
  }
  return kExitFailure;
}
