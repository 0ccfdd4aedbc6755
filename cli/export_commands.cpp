// The export commands of the headless tool: text, html, info and picture. Each writes
// the bytes the program's own command writes, to the path given instead of a chosen one.

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "cli.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "export/export_file.h"
#include "export/html_report.h"
#include "export/info_view.h"
#include "export/text_scheme.h"

namespace tavlero::cli {

namespace {

int written(Session& session, const std::string& path, const std::string& bytes) {
  return writeExportFile(session.app(), path, bytes) ? kExitDone : kExitFailure;
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
      if (getField(store.itemList.List(i), "methodName") == name) store.selectedCell = i;
    if (store.selectedCell == -1) {
      printMessage("Prosjektet har ingen metode med navnet '" + name + "'.");
      return kExitFailure;
    }
  }
  return written(session, args[1], infoPageFileText(store));
}

int picture(Session& session, std::vector<std::string>& args) {
  if (!twoPaths(args)) return usageError("picture tar IN.tvl OUT.bmp.");
  if (!session.open(args[0])) return kExitFailure;
  std::string reason;
  // The desktop menu always writes BMP; here a name ending in .png asks for PNG.
  std::string suffix = std::filesystem::path(args[1]).extension().string();
  std::transform(suffix.begin(), suffix.end(), suffix.begin(),
                 [](unsigned char c) { return std::tolower(c); });
  const PictureFormat format = suffix == ".png" ? PictureFormat::Png : PictureFormat::Bmp;
  if (session.app().pictures.SavePicture(session.app().canvas, args[1], format, reason)) return kExitDone;
  showExportFailure(session.app(), args[1], reason);
  return kExitFailure;
}

const RegisterCommand kText(
    {"text", "[--clipboard] IN.tvl OUT.txt",
     "tekstskjemaet slik \"Lagre som tekst\" skriver det, eller teksten kopieringen gir", text});
const RegisterCommand kHtml({"html", "IN.tvl OUT.html", "HTML-rapporten slik \"Lagre som HTML\" skriver den",
                             html});
const RegisterCommand kInfo({"info", "IN.tvl OUT.html [--method NAVN]",
                             "siden i infovisningen: prosjektet, eller den første metoden med navnet", info});
const RegisterCommand kPicture({"picture", "IN.tvl OUT.bmp",
                                "bildet av brettet etter innlesing (BMP, eller PNG)", picture});

}  // namespace

}  // namespace tavlero::cli
