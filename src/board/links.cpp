#include "board/links.h"

#include <string>
#include <vector>

#include "core/cp1252.h"
#include "core/record.h"

namespace tavlero {

void addLink(App& app, int16_t source, int16_t target) {
  if (source == target) return;
  ProjectStore& store = app.store;
  // A refused duplicate still counts as a change; a refused self link does not.
  store.markChanged();
  std::string record = "<linkSource>" + getField(store.itemList.List(source), "methodName") +
                       "</linkSource><linkTarget>" + getField(store.itemList.List(target), "methodName") +
                       "</linkTarget>";
  for (const std::string& existing : store.linkList.items())
    if (existing == record) return;
  if (store.linkList.ListCount() >= ProjectStore::kMaxLinks) {
    app.ui.Beep();
    app.ui.MsgBox(
        "Planen har allerede 32767 koblinger, som er det meste den kan holde. Koblingen ble ikke laget."_cp,
        MsgButtons::OK, MsgIcon::Exclamation, "Tavlero");
    return;
  }
  store.linkList.AddItem(std::move(record));
  store.linkSizeList.AddItem("<X1>0</X1><Y1>0</Y1><X2>0</X2><Y2>0</Y2>");
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
