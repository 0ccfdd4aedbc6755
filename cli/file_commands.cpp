// The project file commands of the headless tool: save and check.

#include <cstdio>

#include "cli.h"
#include "core/cp1252.h"
#include "files/project_check.h"
#include "files/project_file.h"
#include "files/save_file.h"

namespace tavlero::cli {

namespace {

int save(Session& session, std::vector<std::string>& args) {
  if (args.size() != 2 || args[0].empty() || args[1].empty()) return usageError("save tar IN.tvl OUT.tvl.");
  if (!session.open(args[0])) return kExitFailure;
  // The output path whole as the file name, with no folder in front of it.
  return writeProject(session.app(), args[1], "") ? session.done() : kExitFailure;
}

int check(Session& session, std::vector<std::string>& args) {
  if (args.size() != 1 || args[0].empty()) return usageError("check tar IN.tvl.");
  session.start();
  std::string text;
  if (FileError error = readWholeFile(args[0], text); error != FileError::None) {
    printMessage(fileMessage(FileAction::Open, args[0], error));
    return kExitFailure;
  }
  std::vector<std::string> problems = checkProject(text);
  for (const std::string& line : problems) std::printf("%s\n", cp1252ToUtf8(line).c_str());
  return problems.empty() ? kExitDone : kExitProblems;
}

const RegisterCommand kSave({"save", "IN.tvl OUT.tvl", "skriver prosjektet slik lagre-kommandoen skriver det",
                             save});
const RegisterCommand kCheck({"check", "IN.tvl",
                              "skriver på standard ut alt i filen som leseren ville miste eller lese feil, "
                              "én linje hver; kode 1 når den finner noe",
                              check});

}  // namespace

}  // namespace tavlero::cli
