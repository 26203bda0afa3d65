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
  list.editable = true;
  list.above = editor_.frame;
  for (const LabelledBox& each : editor_.boxes) list.boxes.push_back(each.box);
  PlaceBoxes(editor_.frame, editor_.boxes, editor_.boxesInARow);
  list.buttons = {{&cmdAdauga, "cmdAdauga", "Adaugare", editor_.addTip,
                   [this](Procedure&) { cmdAdauga_Click(); }, Role::kAdd},
                  {&cmdSterge, "cmdSterge", "Stergere", editor_.deleteTip,
                   [this](Procedure&) { cmdSterge_Click(); }},
                  {&cmdIesire, "cmdIesire", "Iesire", "Inchidere fereastra", {}, Role::kClose}};
  list.size = editor_.size;
  return list;
}

void EditorScreen::RunTitled(const std::string& title, const std::function<void()>& body) {
  RunWith(
      title.c_str(), [&](Procedure&) { body(); },
      [&](const Failure& failure, const Procedure&) {
        ShowMessage({ShortErrorText(failure), kCritical, title, {}});
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
  RunTitled(editor_.addFailure, [this] {
    if (!AreBoxesValid()) return;
    pAdauga();
    if (editor_.added) editor_.added();
    MarkBoxesSaved();
  });
}

void EditorScreen::pAdauga() {
  AddRow(editor_.row());
}

void EditorScreen::cmdSterge_Click() {
  RunTitled(editor_.deleteFailure, [this] {
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
