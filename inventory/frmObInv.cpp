#include "inventory/frmObInv.h"

#include "inventory/InventoryList.h"
#include "inventory/frmObInvFisa.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "session/Lists.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr const char* kTotalFormat = "#.##0,00";

GridColumn ColumnOf(const ObjectColumn& column) {
  using Kind = ObjectColumn::Kind;
  GridColumn made{column.caption, column.field, {}, {}, column.width};
  if (column.kind == Kind::kMoney) made.format = "Standard";
  if (column.kind == Kind::kYesNo) made.list = {{0, "Nu"}, {-1, "Da"}};
  return made;
}

}  // namespace

frmObInv::frmObInv(QWidget* parent) : ListScreen("frmObInv", "Obiecte de inventar", parent) {
  Open(Describe());
  TDBGrid1 = Grid();
  // Every statement's rows are added up while they are read, those of a search too.
  datPrimaryRS->SetTotalledFields(TotalledFields());
  connect(TDBGrid1, &DataGrid::GroupColMove, this,
          [this] { RunShort("TDBGrid1_GroupColMove", [this](Procedure&) { TotalGeneral(); }); });
}

ListDescription frmObInv::Describe() {
  ListDescription list;
  list.connection = CurrentSession().connectionString;
  list.statement = ObjectListStatement() + kNewestObjectFirst;
  for (const ObjectColumn& column : kObjectColumns) list.columns.push_back(ColumnOf(column));
  list.key = "NRCRT";
  list.refreshed = list.rowSelect = list.counted = list.shortFailures = true;
  list.size = {1200, 560};
  for (const char* field : kTotalledObjectFields) list.totals.push_back({field, kTotalFormat});
  list.search = ListSearch{
      AllObjectsStatement(),
      {{ObjectsByNameStatement(), "Nu exista obiecte de inventar ale caror denumire sa inceapa cu ",
        "optOb", "dupa den. obiect"},
       {ObjectsByPersonStatement(),
        "Nu exista persoane care gestioneaza obiectele de inventar ale caror nume sa inceapa cu ",
        "optPers", " dupa pers. evid."}},
      "Cauta",
      "Cautare dupa denumire sau persoana"};
  list.sort = ListSort{"Drag a column header here to group by that column", "Sortare:"};
  list.toolsKey = GridKey("frmObInv.TDBGrid1");
  list.print.header = "R A P O R T";
  list.print.headerBold = true;
  list.print.footer = "Editat de Tevra       \tPagina: \\p";
  list.buttons = Buttons();
  return list;
}

std::vector<ListButton> frmObInv::Buttons() {
  using Role = ListButton::Role;
  return {
      {&cmdCreare, "cmdCreare", "Creare", "Creare obiect nou de inventar",
       [this](Procedure&) { cmdCreare_Click(); }},
      {&cmdModificare, "cmdModificare", "Modificare",
       "Modificare informatii pentru obiectul de inventar selectat",
       [this](Procedure&) { cmdModificare_Click(); }, Role::kChange, true},
      {&CommandButton3, "CommandButton3", "Stergere", "Stergere obiect de inventar selectat",
       [this](Procedure& running) { CommandButton3_Click(running); }, Role::kPlain, true},
      {&cmdListare, "cmdListare", "Listare", "Listare pe ecran sau pe imprimanta, linii selectate",
       [this](Procedure& running) { cmdListare_Click(running); }},
      {&cmdClose, "cmdClose", "Iesire", "Inchidere fereastra", {}, Role::kClose},
  };
}

// ---- Totals -------------------------------------------------------------------------------------

// Without a selected row the footers stay as they are. The first sum is in whole lei.
void frmObInv::Total() {
  if (Grid()->SelectedRows().empty()) return;
  std::vector<double> totals = TotalsOfMarked();
  totals.front() = Round0(totals.front());
  ShowTotals(totals);
}

void frmObInv::TotalGeneral() {
  rounded_ = true;
  std::vector<double> totals = TotalsOfRows();
  totals.front() = Round0(totals.front());
  ShowTotals(totals);
}

void frmObInv::RowSelected(const std::string& key) {
  sNrCrt = key;
  RunShort("Total", [this](Procedure&) { Total(); });
}

// The footers keep up with objects that were bought, changed or deleted.
void frmObInv::RefreshInPlace() {
  ListScreen::RefreshInPlace();
  if (!Grid()->SelectedRows().empty()) return Total();
  rounded_ ? TotalGeneral() : ShowTotals(TotalsOfRows());
}

void frmObInv::cmdCauta_Click(Procedure&) {
  RunWith(
      "cmdCauta_Click", [this](Procedure& running) { ListScreen::cmdCauta_Click(running); },
      [](const Failure& failure, const Procedure&) {
        MsgBoxEx(ShortErrorText(failure), kCritical, "Cautare");
      });
}

// ---- Buttons ------------------------------------------------------------------------------------

void frmObInv::cmdCreare_Click() {
  bAdaugare = true;
  OpenObjectCard({bAdaugare, sNrCrt});
}

void frmObInv::cmdModificare_Click() {
  if (sNrCrt.empty()) {
    MsgBoxEx("Va rugam selectati o inregistrare !", kCritical);
    return;
  }
  bAdaugare = false;
  OpenObjectCard({bAdaugare, sNrCrt});
}

void frmObInv::CommandButton3_Click(Procedure& running) {
  const std::string question =
      "Sunteti sigur ca doriti sa efectuati stergerea obiectului " + Text("DENUMIRE") + " ?";
  DeleteRow(running, question, kQuestion, [this](const Value& object) {
    ExecuteSQL("delete * from i_inv where nrcrt = ?", {object});
    if (sNrCrt == object.TextOrEmpty()) sNrCrt.clear();
  });
}

void frmObInv::cmdListare_Click(Procedure& running) {
  RunShort("Total", [this](Procedure&) { Total(); });
  running.line = 1;
  PreviewGrid(Grid()->Content(DataGrid::Rows::kMarked), Grid()->PrintInfo(), windowTitle());
}

}  // namespace tevra
