#include "platform/screens/EditorScreen.h"

namespace tevra {

void EditorScreen::Edit(EditorDescription description) {
  editor_ = std::move(description);
  Open(Describe());
  grdDataGrid = Grid();
  grdDataGrid->SetBeforeColUpdate([this](int column, const QString&, const QString& text) {
    return grdDataGrid_BeforeColUpdate(column, text);
  });
}

ListDescription EditorScreen::Describe() {
  using Role = ListButton::Role;
  ListDescription list;
  list.grid = "grdDataGrid";
  list.connection = editor_.connection;
  list.statement = editor_.statement;
  list.columns = editor_.columns;
  list.key = editor_.key;
  list.toolsKey = editor_.toolsKey;
  list.editable = true;
  list.above = editor_.frame;
  for (const LabelledBox& each : editor_.boxes) {
    list.boxes.push_back(each.box);
    if (each.beside) list.boxes.push_back(each.beside);
  }
  PlaceBoxes(editor_.frame, editor_.boxes, editor_.boxesInARow);
  list.buttons = {{&cmdAdauga, "cmdAdauga", "Adaugare", editor_.addTip,
                   [this](Procedure&) { cmdAdauga_Click(); }, Role::kAdd},
                  {&cmdSterge, "cmdSterge", "Stergere", editor_.deleteTip,
                   [this](Procedure&) { cmdSterge_Click(); }, Role::kPlain, true},
                  {&cmdIesire, "cmdIesire", "Iesire", "Inchidere fereastra", {}, Role::kClose}};
  list.size = editor_.size;
  return list;
}

void EditorScreen::RunTitled(const std::string& title, bool withLine, const Body& body) {
  RunWith(title.c_str(), body, [&](const Failure& failure, const Procedure& running) {
    const std::string line = withLine ? " Linia: " + std::to_string(running.line) : "";
    ShowMessage({ShortErrorText(failure) + line, kCritical, title, {}});
  });
}

bool EditorScreen::AreBoxesValid() {
  for (const EditorCheck& check : editor_.checks) {
    if (!check.fails()) continue;
    ShowMessage({check.message, kCritical, {}, {}});
    if (check.focus) GiveFocus(check.focus);
    return false;
  }
  return true;
}

void EditorScreen::cmdAdauga_Click() {
  RunTitled(editor_.addFailure, editor_.addFailureLine, [this](Procedure& running) {
    running.line = 1;
    if (!AreBoxesValid()) return;
    running.line = 2;
    pAdauga();
    running.line = 3;
    if (editor_.added) editor_.added();
    MarkBoxesSaved();
  });
}

void EditorScreen::pAdauga() {
  AddRow(editor_.row());
}

void EditorScreen::cmdSterge_Click() {
  RunTitled(editor_.deleteFailure, false, [this](Procedure&) {
    if (!datPrimaryRS->HasRow() || !AskToDelete(editor_.question())) return;
    for (const UseCheck& use : editor_.uses) {
      if (!use.used()) continue;
      ShowMessage({use.message, kCritical, {}, {}});
      return;
    }
    datPrimaryRS->Recordset().Delete();
    ShowWithoutDeleted();
  });
}

bool EditorScreen::grdDataGrid_BeforeColUpdate(int column, const QString& text) {
  for (const CellCheck& check : editor_.cells) {
    if (check.column != column || !check.fails(text.toStdString())) continue;
    ShowMessage({check.message, kCritical, {}, {}});
    return false;
  }
  return true;
}

}  // namespace tevra
