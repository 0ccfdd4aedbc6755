// The export commands of the headless tool: text, html, info and picture. Each writes
// the bytes the program's own command writes, to the path given instead of a chosen one.

#include <algorithm>
#include <cctype>

#include "cli.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "core/records.h"
#include "export/export_file.h"
#include "export/html_report.h"
#include "export/info_view.h"
#include "export/text_scheme.h"
#ifdef TAVLERO_CLI_DRAWS
#include "qt/board_vector.h"
#else
#include <unistd.h>

#include <filesystem>
#endif

namespace tavlero::cli {

namespace {

int written(Session& session, const std::string& path, const std::string& bytes) {
  return writeExportFile(session.app(), path, bytes) ? session.done() : kExitFailure;
}

bool twoPaths(const std::vector<std::string>& args) {
  return args.size() == 2 && !args[0].empty() && !args[1].empty();
}

int text(Session& session, std::vector<std::string>& args) {
  const bool clipboard = takeFlag(args, "--clipboard");
  if (!twoPaths(args)) return usageError("text tar [--clipboard] IN.tvl OUT.txt.");
  if (!session.open(args[0])) return kExitFailure;
  if (!clipboard) return written(session, args[1], buildScheme(session.app().store, true));
  copySchemeText(session.app());
  return written(session, args[1], session.clipboard().text);
}

int html(Session& session, std::vector<std::string>& args) {
  if (!twoPaths(args)) return usageError("html tar IN.tvl OUT.html.");
  if (!session.open(args[0])) return kExitFailure;
  return written(session, args[1], buildHtmlReport(session.app().store));
}

int info(Session& session, std::vector<std::string>& args) {
  bool missing = false;
  std::optional<std::string> method = takeOption(args, "--method", missing);
  if (missing) return usageError("--method mangler navn.");
  if (!twoPaths(args)) return usageError("info tar IN.tvl OUT.html [--method NAVN].");
  if (!session.open(args[0])) return kExitFailure;
  ProjectStore& store = session.app().store;
  if (method) {
    const std::string name = utf8ToCp1252(*method);
    for (int16_t i = 0; i < store.itemList.ListCount() && store.selectedCell == -1; ++i)
      if (getField(store.itemList.List(i), key::methodName) == name) store.selectedCell = i;
    if (store.selectedCell == -1) {
      printMessage("Prosjektet har ingen metode med navnet '" + name + "'.");
      return kExitFailure;
    }
  }
  return written(session, args[1], infoPageFileText(store));
}

#ifdef TAVLERO_CLI_DRAWS
bool endsWith(const std::string& path, std::string_view suffix) {
  if (path.size() < suffix.size()) return false;
  return std::equal(suffix.begin(), suffix.end(), path.end() - static_cast<std::ptrdiff_t>(suffix.size()),
                    [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

// A vector picture for an .svg or .pdf name, which has no size limit worth the name; PNG
// for a .png name; otherwise the BMP that the menu always writes.
bool savePicture(App& app, const std::string& path, std::string& reason) {
  if (endsWith(path, ".svg")) return saveVectorPicture(app.canvas, VectorFormat::Svg, path, reason);
  if (endsWith(path, ".pdf")) return saveVectorPicture(app.canvas, VectorFormat::Pdf, path, reason);
  const PictureFormat format = endsWith(path, ".png") ? PictureFormat::Png : PictureFormat::Bmp;
  return app.platform.pictures.SavePicture(app.canvas, path, format, reason);
}

int picture(Session& session, std::vector<std::string>& args) {
  if (!twoPaths(args)) return usageError("picture tar IN.tvl OUT.bmp|.png|.svg|.pdf.");
  if (!session.open(args[0])) return kExitFailure;
  std::string reason;
  if (savePicture(session.app(), args[1], reason)) return session.done();
  showExportFailure(session.app(), args[1], reason);
  return kExitFailure;
}
#else
// The same command of tavlero-cli-picture, beside this program, in this process's place.
int picture(Session& session, std::vector<std::string>& args) {
  const std::string program =
      (std::filesystem::path(session.programPath()).parent_path() / "tavlero-cli-picture").string();
  std::vector<std::string> words = {program};
  if (!session.settingsPath().empty()) words.insert(words.end(), {"--settings", session.settingsPath()});
  words.emplace_back("picture");
  words.insert(words.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  ::execv(program.c_str(), argv.data());
  printMessage("Fant ikke " + utf8ToCp1252(program) + ", som skriver bildene.");
  return kExitFailure;
}
#endif

const RegisterCommand kText({"text", "[--clipboard] IN.tvl OUT.txt",
                             "skriver tekstskjemaet slik \"Lagre som tekst\" skriver det, eller med "
                             "--clipboard teksten som kopieringen legger på utklippstavlen",
                             text});
const RegisterCommand kHtml({"html", "IN.tvl OUT.html",
                             "skriver HTML-rapporten slik \"Lagre som HTML\" skriver den", html});
const RegisterCommand kInfo({"info", "IN.tvl OUT.html [--method NAVN]",
                             "skriver siden i infovisningen: prosjektets side, eller siden til den første "
                             "metoden med navnet NAVN",
                             info});
const RegisterCommand kPicture({"picture", "IN.tvl OUT.bmp|.png|.svg|.pdf",
                                "skriver bildet av brettet etter innlesing: BMP som menyen skriver, PNG for "
                                ".png, og for .svg og .pdf en vektortegning med tekst som tekst, uansett "
                                "brettets størrelse",
                                picture, true});

}  // namespace

}  // namespace tavlero::cli
