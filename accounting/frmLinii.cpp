#include "accounting/frmLinii.h"

#include "accounting/LineQuery.h"
#include "platform/export/TableExport.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/frmProgress.h"
#include "platform/grid/GridExport.h"
#include "platform/system/Paths.h"
#include "platform/text/Numbers.h"
#include "session/Lists.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr const char* kFooter = "Editat de Kelnar Brovena       \tPagina: \\p";
constexpr const char* kWebPage = "\\Raport.htm";

std::vector<GridColumn> LineColumns() {
  std::vector<GridColumn> columns{{"NDI", "NDI", {}, {}, 7},
                                  {"Nr. crt.", "NRLINIE", {}, {}, 7},
                                  {"Jurnal", "JURNAL", {}, {}, 6},
                                  {"Data document", "DATAINR", {}, {}, 13},
                                  {"Document", "DOC", {}, {}, 14},
                                  {"Fel si Nr. Document", "DocExplicatie", {}, {}, 18},
                                  {"Cont", "CONT", {}, {}, 9},
                                  {"Debit", "DEBIT", "Standard", {}, 15},
                                  {"Credit", "CREDIT", "Standard", {}, 15},
                                  {"Explicatie", "EXPL", {}, {}, 28},
                                  {"Marca", "MARCA", {}, {}, 10},
                                  {"LITM", "LITM", {}, {}, 8},
                                  {"Centru cost", "CODBUG", {}, {}, 11},
                                  {"Cod", "COD", {}, {}, 6},
                                  {"Curs", "CURS", {}, {}, 9},
                                  {"Debit valuta", "DEVDEBIT", "Standard", {}, 15},
                                  {"Credit valuta", "DEVCREDIT", "Standard", {}, 15},
                                  {"Cantitate", "CANTIT", {}, {}, 9},
                                  {"Tert", "NUME", {}, {}, 24},
                                  {"Cota TVA", "COTATVA", {}, {}, 9},
                                  {"Linia cu baza pentru TVA", "TVA_LINREF", {}, {}, 22},
                                  {"Provenienta", "PROV", {}, {}, 11},
                                  {"Data Scadenta", "DATASCAD", {}, {}, 13},
                                  {"Utilizator", "UTILIZATOR", {}, {}, 11},
                                  {"Data validarii", "TIMP", "dd.mm.yyyy hh:nn:ss", {}, 19},
                                  {"CodSucursala", "CodSucursala", {}, {}, 12}};
  return columns;
}

}  // namespace

frmLinii::frmLinii(QWidget* parent) : ListScreen("frmLinii", "Inregistrari", parent) {
  WhereBuilder = new tevra::WhereBuilder("WhereBuilder", this);
  GetFieldsProperties();
  Open(Describe());
  GetTotal();
  TDBGrid1 = Grid();
  lblNoInreg = lblRecCount;
  connect(WhereBuilder, &tevra::WhereBuilder::SearchWanted, cmdCauta, &QPushButton::click);
  GiveFocus(WhereBuilder->FirstBox());
}

// Where the user was used to these names of other screens in the messages, they stay.
bool frmLinii::RunAs(const char* procedure, const char* form, const Body& body) {
  return RunWith(procedure, body, [form](const Failure& failure, const Procedure& running) {
    Procedure told = running;
    told.module = form;
    ShowStandardError(failure, told);
  });
}

void frmLinii::GetFieldsProperties() {
  RunAs("GetFieldsProperties", "frmTerti", [this](Procedure& running) {
    const std::string& connection = CurrentSession().connectionString;
    running.line = 1;
    const std::vector<WhereField> fields = LineFields(Connection(connection));
    running.line = 2;
    WhereBuilder->SetUp({connection, fields, kFirstLineField, UserKey("Conditii", "frmLinii")});
  });
}

ListDescription frmLinii::Describe() {
  ListDescription list;
  list.connection = CurrentSession().connectionString;
  list.statement = LinesAtOpening();
  list.columns = LineColumns();
  list.counted = list.strip = true;
  list.countCaption = "Nr. Inregistrari:";
  list.countName = "lblNoInreg";
  for (const char* field : kLineTotals) list.totals.push_back({field, "Standard"});
  list.sort = ListSort{"Drag a column header here to group by that column", "SORTARE",
                       "Ordine crescatoare", "Ordine descrescatoare"};
  list.toolsKey = GridKey("frmLinii.TDBGrid1");
  list.print.header = QString::fromStdString(LinesTitle({}));
  list.print.headerBold = true;
  list.print.footer = kFooter;
  list.above = WhereBuilder;
  list.buttons = Buttons();
  list.size = {1100, 620};
  list.least = {760, 420};
  return list;
}

std::vector<ListButton> frmLinii::Buttons() {
  using Role = ListButton::Role;
  return {{&cmdCauta, "cmdCauta", "Cautare", "Cautare in functie de conditiile stabilite mai sus",
           [this](Procedure& running) { cmdCauta_Click(running); }},
          {&cmdDelete, "cmdDelete", "Stergere", "Stergere NDI curent",
           [this](Procedure& running) { cmdDelete_Click(running); }, Role::kPlain, true},
          {&cmdListare, "cmdListare", "Listare",
           "Listare linii selectate pe ecran, imprimanta si salvare in fisierul Raport.htm",
           [this](Procedure& running) { cmdListare_Click(running); }},
          {&cmdClose, "cmdClose", "Iesire", "Inchidere fereastra", {}, Role::kClose}};
}

void frmLinii::GetTotal() {
  RunAs("GetTotal", "frmInterogari", [this](Procedure& running) {
    running.line = 1;
    const Recordset& rows = datPrimaryRS->Recordset();
    if (!rows.IsOpen()) return;  // the opening has said why
    if (rows.RecordCount() > 0) return ShowTotals(TotalsOfRows());
    for (const char* field : kLineTotals) Grid()->SetFooter(field, {});
  });
}

// Shows the rows of another statement, in its order.
void frmLinii::Reopen(const std::string& statement, const WhereClause& clause) {
  datPrimaryRS->SetRecordSource(statement, clause.params);
  datPrimaryRS->SetTotalledFields(TotalledFields());
  datPrimaryRS->Refresh();
  Grid()->ResetGroups();
  shown_ = clause;
  GridPrintInfo print = Description().print;
  print.header = QString::fromStdString(LinesTitle(clause));
  Grid()->SetPrintInfo(print);
  GetTotal();
  ShowCount();
}

void frmLinii::cmdCauta_Click(Procedure& running) {
  running.line = 1;
  const std::optional<WhereClause> clause = WhereBuilder->Clause();
  if (!clause) return;
  const Hourglass waiting;
  running.line = 2;
  Reopen(LinesWhere(*clause), *clause);
}

void frmLinii::cmdDelete_Click(Procedure& running) {
  if (!datPrimaryRS->HasRow()) return;
  running.line = 1;
  const Recordset& rows = datPrimaryRS->Recordset();
  if (IsFromStock(rows.Get("PROV").TextOrEmpty())) {
    MsgBoxEx("Nu puteti sterge documentul pentru ca provine din gestiune", kExclamation);
    return;
  }
  running.line = 2;
  const std::int32_t note = Nz(rows.Get("NDI")).AsLong();
  const std::string question = "Sigur doriti sa stergeti documentul " + std::to_string(note) + " ?";
  if (MsgBoxEx(question, kYesNo) != kYes || note == 0) return;
  const Hourglass waiting;
  running.line = 3;
  Connection connection(CurrentSession().connectionString);
  DeleteNote(connection, note);
  running.line = 4;
  Reopen(LinesAfterDeletion(), {});
}

void frmLinii::cmdListare_Click(Procedure& running) {
  running.line = 1;
  const QString title = QString::fromStdString(LinesTitle(shown_));
  const GridContent content = Grid()->Content();
  {
    const Hourglass waiting;
    PreviewGrid(content, Grid()->PrintInfo(), windowTitle());
  }
  running.line = 2;
  frmProgress progress("Raport.htm", {}, this);
  SaveHtml(TableOf(content, title), paths::Resolve(CurrentSession().databasesPath + kWebPage),
           progress.Asked());
}

}  // namespace tevra
