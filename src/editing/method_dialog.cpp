#include "editing/method_dialog.h"

#include <string>

#include "board/board.h"
#include "core/cp1252.h"
#include "core/record.h"
#include "core/records.h"

namespace tavlero {

namespace {

// Replaces a link's field when it names the old name exactly.
void renameInLink(StringList& links, int16_t index, std::string_view field, const std::string& oldName,
                  const std::string& newName) {
  const std::string& record = links.List(index);
  if (getField(record, field) == oldName) links.setList(index, setField(record, field, newName));
}

// The links as the last redraw read them, while no link record has changed since; else
// null, and each link is read from its text.
const std::vector<LinkDrawing>* linksAsDrawn(const App& app) {
  const std::vector<DrawingMemo::Drawings>& contexts = app.drawingMemo.contexts;
  const StringList& links = app.store.linkList;
  if (contexts.empty() || contexts.front().linksSeen.records != links.revision() ||
      contexts.front().links.size() != static_cast<size_t>(links.ListCount()))
    return nullptr;
  return &contexts.front().links;
}

void showError(App& app, const std::string& text) {
  app.addMethodForm->setErrorLabel(text, true);
  app.platform.ui.Beep();
}

// True when the cell was added; false, with the dialog still open, when it was refused.
bool addCell(App& app, const MethodFormView& form) {
  ProjectStore& store = app.store;
  std::string name = form.methodName();
  if (cellNamed(app, name)) {
    showError(app, "Feil:Navnet eksisterer allerede! Bytt navn...");
    return false;
  }
  // The table of long descriptions has one slot per method and nothing beyond it.
  if (store.itemList.ListCount() >= ProjectStore::kMaxMethods) {
    showError(app, "Feil: Planen har allerede 32001 metoder og kan ikke ta flere!");
    return false;
  }
  CellFields cell{
      numberToText(store.lastMouseX), numberToText(store.lastMouseY),   name,
      form.shortDescription(),        numberToText(store.currentColor), numberToText(store.currentFillStyle)};
  store.itemList.AddItem(buildCell(cell, store.fieldSeparator, store.fieldSeparator));
  store.setLongDescription(static_cast<int16_t>(store.itemList.ListCount() - 1), form.longDescription());
  store.sizeList.AddItem(std::string(kGeometryPlaceholder));
  store.markChanged();
  return true;
}

void editCell(App& app, const MethodFormView& form) {
  ProjectStore& store = app.store;
  const int16_t index = store.selectedCell;
  CellFields cell = readCell(store.itemList.List(index));
  const std::string oldName = cell.methodName;
  std::string newName = form.methodName();
  // The links follow the name first, while the old record still tells what it was;
  // otherwise the next redraw would sweep them out as links to a missing cell.
  // The same name leaves every link as it is.
  const std::vector<LinkDrawing>* drawn = linksAsDrawn(app);
  for (int16_t i = 0; i < store.linkList.ListCount() && newName != oldName; ++i) {
    // A link that names neither end by the old name stays as it is, and a link whose
    // record the last redraw read says so without a search through the text.
    const LinkDrawing* known = drawn ? &(*drawn)[static_cast<size_t>(i)] : nullptr;
    if (known && known->valid && known->ends.source != oldName && known->ends.target != oldName) continue;
    renameInLink(store.linkList, i, key::linkSource, oldName, newName);
    renameInLink(store.linkList, i, key::linkTarget, oldName, newName);
  }
  // An edited record has no separator between the summary and the colour; files written
  // afterwards show it, the field search does not care.
  cell.methodName = newName;
  cell.shortDescription = form.shortDescription();
  store.itemList.setList(index, buildCell(cell, store.fieldSeparator, ""));
  store.setLongDescription(index, form.longDescription());
  store.markChanged();
}

// main stays disabled while the form is open, so the selection cannot change under it.
void openForm(App& app, bool editSelected) {
  if (app.addMethodForm) return;
  app.platform.ui.setMainEnabled(false);
  app.addMethodForm = app.platform.forms.makeMethodForm();
  MethodFormView& form = *app.addMethodForm;
  form.Show();
  if (editSelected) {
    const ProjectStore& store = app.store;
    const std::string& record = store.itemList.List(store.selectedCell);
    form.setTexts(getField(record, key::methodName), getField(record, key::shortDescription),
                  store.getField(record, key::longDescription));
    form.setCaption("Redigere metode");
  }
  form.focusNameSelectAll();
}

}  // namespace

void openAddMethodForm(App& app) {
  openForm(app, false);
}

void canvas_DblClick(App& app) {
  openForm(app, app.store.selectedCell != -1);
}

void addMethodForm_Command2_Click(App& app) {
  if (!app.addMethodForm) return;
  const MethodFormView& form = *app.addMethodForm;
  if (form.methodName().empty()) {
    showError(app, "Feil: Metoden må ha et navn!"_cp);
    return;
  }
  if (app.store.selectedCell == -1) {
    if (!addCell(app, form)) return;
  } else {
    editCell(app, form);
  }
  addMethodForm_Command1_Click(app);
  redrawBoard(app);
}

void addMethodForm_Command1_Click(App& app) {
  app.platform.ui.setMainEnabled(true);
  app.platform.ui.focusMain();
  // Taken out first, so that a close that the discarding itself raises finds the form gone.
  if (auto form = std::move(app.addMethodForm)) form->Unload();
}

void addMethodForm_longDescription_GotFocus(App& app) {
  // Enter makes a new line in the description instead of pressing OK, for the rest of
  // this opening.
  if (app.addMethodForm) app.addMethodForm->setOkDefault(false);
}

}  // namespace tavlero
