#include "export/text_scheme.h"

#include "core/cp1252.h"
#include "export/export_file.h"
#include "export/export_index.h"
#include "files/save_file.h"

namespace tavlero {

namespace {

const std::string kLineEnd = "\r\n";

// The other end of each link, one entry per link.
void appendNames(std::string& out, const ExportIndex& index, std::span<const int16_t> links, bool showTarget,
                 const std::string& separator) {
  for (int16_t link : links) {
    out += showTarget ? index.linkTarget(link) : index.linkSource(link);
    out += separator;
  }
}

}  // namespace

void appendSchemeText(std::string& out, const ProjectStore& store, const ExportIndex& index,
                      int16_t position) {
  static const std::string kProcedure = "Fremgangsmåte:"_cp;
  const std::string& sep = store.fieldSeparator;
  const std::string_view name = index.methodName(position);
  out.append("Metode: ").append(name).append(kLineEnd).append(kLineEnd);
  out.append("Oppsummering: ").append(index.shortDescription(position)).append(kLineEnd).append(kLineEnd);
  out.append("'").append(name).append("' benytter:").append(sep).append(sep);
  appendNames(out, index, index.linksFrom(position), true, sep);
  out += kLineEnd;
  out.append("'").append(name).append("' blir brukt av:").append(sep).append(sep);
  appendNames(out, index, index.linksTo(position), false, sep);
  out.append(kLineEnd).append(kProcedure).append(kLineEnd);
  out += index.longDescription(position);
  out.append(kLineEnd).append(kLineEnd).append("*************").append(kLineEnd);
}

std::string buildScheme(const ProjectStore& store, bool forFile) {
  ExportIndex index(store);
  std::string out;
  reserveLarge(out, index.expectedSize(150, 4));
  for (int16_t i = 0; i < store.itemList.ListCount(); ++i) {
    appendSchemeText(out, store, index, i);
    if (forFile) out += kLineEnd;
  }
  return out;
}

void copySchemeText(App& app) {
  if (app.store.itemList.ListCount() == 0) return;
  std::string text = buildScheme(app.store, false);
  app.platform.clipboard.Clear();
  app.platform.clipboard.SetText(text);
}

void saveSchemeText(App& app) {
  if (auto path = chooseExportPath(app, "Tekstfiler (*.txt)|*.txt", "*.txt"))
    writeExportFile(app, *path, buildScheme(app.store, true));
}

}  // namespace tavlero
