#include "board/links.h"

#include <string>
#include <vector>

#include "core/cp1252.h"
#include "core/record.h"
#include "core/records.h"

namespace tavlero {

void addLink(App& app, int16_t source, int16_t target) {
  if (source == target) return;
  ProjectStore& store = app.store;
  // A refused duplicate still counts as a change; a refused self link does not.
  store.markChanged();
  std::string record = buildLink(getField(store.itemList.List(source), key::methodName),
                                 getField(store.itemList.List(target), key::methodName));
  for (const std::string& existing : store.linkList.items())
    if (existing == record) return;
  if (store.linkList.ListCount() >= ProjectStore::kMaxLinks) {
    app.platform.ui.Beep();
    app.platform.ui.MsgBox(
        "Planen har allerede 32767 koblinger, som er det meste den kan holde. Koblingen ble ikke laget."_cp,
        MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
    return;
  }
  store.linkList.AddItem(std::move(record));
  store.linkSizeList.AddItem(std::string(kTaggedGeometryPlaceholder));
}

void removeBlankLinks(App& app) {
  ProjectStore& store = app.store;
  std::vector<int16_t> blanks;
  const auto& links = store.linkList.items();
  for (size_t i = 0; i < links.size(); ++i)
    if (links[i].empty()) blanks.push_back(static_cast<int16_t>(i));
  if (blanks.empty()) return;
  // One pass over both lists keeps them parallel, however many links a deleted cell had.
  store.linkList.RemoveItems(blanks);
  store.linkSizeList.RemoveItems(blanks);
}

}  // namespace tavlero
