#include "register/frmImo.h"

#include <QTableView>
#include <algorithm>

#include "engine/Module3.h"
#include "engine/PlanAmortizare.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Windows.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "register/AssetColumns.h"
#include "register/AssetList.h"
#include "register/TransferPreview.h"
#include "register/frmFisaImo.h"
#include "register/frmIesireImo.h"
#include "register/frmPlanAmo.h"
#include "register/frmSelLuna.h"
#include "session/Lists.h"
#include "session/MenuTable.h"
#include "session/Module1.h"
#include "session/Session.h"
#include "session/frmParamSoc.h"

namespace tevra {

namespace {

// The asset to open may differ from the one on the current row.
bool LacksNewCode(const std::string& nrcrt) {
  const Recordset asset =
      OpenRecordset("SELECT COD_GR_NOU FROM I_IMO WHERE NRCRT = CLng(?)", {nrcrt});
  return !asset.Eof() && asset.Get(0).TextOrEmpty().empty();
}

// Not for a user who has no right to it.
void OpenConfiguration() {
  const std::vector<std::string> forbidden = ForbiddenItems(CurrentSession().userType);
  const bool may = std::find(forbidden.begin(), forbidden.end(), "Soc_Conf") == forbidden.end();
  if (may) windows::Open<frmParamSoc>();
}

TransferSelection FindSmallAssets(Connection& connection) {
  const Hourglass waiting;
  return ReadTransferSelection(connection);
}

const char* ProcedureOf(TransferStep step) {
  switch (step) {
    case TransferStep::kNote:
      return "pAddNoteContabile";
    case TransferStep::kMark:
      return "pIesireMF";
    default:
      return "TrecereInInventar";
  }
}

}  // namespace

frmImo::frmImo(QWidget* parent) : ListScreen("frmImo", "Imobilizari", parent) {
  Label1 = new QLabel(this);
  Label1->setObjectName("Label1");
  Label1->hide();
  Open(Describe());
  TDBGrid1 = Grid();
}

ListDescription frmImo::Describe() {
  ListDescription list;
  list.connection = CurrentSession().connectionString;
  list.statement = AssetListStatement() + kNewestFirst;
  list.columns = AssetColumns();
  list.key = "NRCRT";
  list.refreshed = list.rowSelect = list.counted = list.strip = list.shortFailures = true;
  for (const char* field : kTotalledFields) list.totals.push_back({field, "#,##0"});
  list.search = ListSearch{
      kAssetsByNumber,
      {{AssetSearchStatement(), "Nu exista inregistrari ale caror denumire sa inceapa cu "}}};
  list.sort =
      ListSort{"Aduceti aici, cu drag/drop numele coloanei dupa care doriti sa se faca gruparea."};
  list.toolsKey = GridKey("frmImo.TDBGrid1");
  list.print.header = "R A P O R T";
  list.print.headerBold = true;
  list.print.footer = "Editat de Kelnar Tevra       \tPagina: \\p";
  list.buttons = Buttons();
  list.rowCommands = {
      {"Iesire_Click", "Iesire imobilizare...", [this](Procedure&) { OpenDisposalOfRow(); }}};
  return list;
}

std::vector<ListButton> frmImo::Buttons() {
  using Role = ListButton::Role;
  return {
      {&cmdCreare, "cmdCreare", "Adaugare", "Creare imobilizare noua",
       [this](Procedure&) { cmdCreare_Click(); }},
      {&cmdModificare, "cmdModificare", "Modificare",
       "Modificare informatii pentru imobilizarea selectata",
       [this](Procedure&) { cmdModificare_Click(); }, Role::kChange, true},
      {&CommandButton3, "CommandButton3", "Stergere", "Stergere imobilizare selectata",
       [this](Procedure& running) { CommandButton3_Click(running); }, Role::kPlain, true},
      {&cmdListare, "cmdListare", "Listare", "Listare pe ecran sau pe imprimanta, linii selectate",
       [this](Procedure& running) { ListMarked(running); }},
      {&cmdPlan, "cmdPlan", "Plan a",
       "Afisare Plan de amortizare anual pentru imobilizarea selectata",
       [this](Procedure& running) { cmdPlan_Click(running); }, Role::kPlain, true},
      {&cmdInv, "cmdInv", "In inventar", "Transformare automata in obiecte de inventar",
       [this](Procedure& running) { cmdInv_Click(running); }},
      {&cmdClose, "cmdClose", "Iesire", "Inchidere fereastra", {}, Role::kClose},
  };
}

void frmImo::AddToTotals(std::vector<double>& totals, const Values& row) const {
  AddListedAsset(totals, row);
}

void frmImo::ShowCount() {
  ListScreen::ShowCount();
  Label1->setText(lblRecCount->text());
}

void frmImo::cmdCreare_Click() {
  bAdaugare = true;
  OpenAssetCard({bAdaugare, sNrCrt});
}

void frmImo::cmdModificare_Click() {
  if (sNrCrt.empty()) {
    MsgBoxEx("Va rugam selectati o inregistrare !", kCritical);
    return;
  }
  const bool onRow = Grid()->View()->currentIndex().isValid();
  const bool uncoded = onRow && Text("COD_GR_NOU").empty();
  if (uncoded || LacksNewCode(sNrCrt)) {
    MsgBoxEx("Va rog asociati un cod nou de clasificare in Tabela Coduri de clasificare");
    return;
  }
  bAdaugare = false;
  OpenAssetCard({bAdaugare, sNrCrt});
}

void frmImo::CommandButton3_Click(Procedure& running) {
  const std::string question = "Sunteti sigur ca doriti sa efectuati stergerea inregistrarii " +
                               Text("NRCRT") + " - " + Text("DENUMIRE") + " ?";
  DeleteRow(running, question, 0,
            [](const Value& asset) { ExecuteSQL("delete * from i_imo where nrcrt = ?", {asset}); });
}

void frmImo::OpenDisposalOfRow() {
  const std::string asset = Text("NRCRT");
  if (!asset.empty()) OpenDisposal(CLng(CDbl(asset)));
}

void frmImo::ShowChanges() {
  RunShort("RefreshInPlace", [this](Procedure&) { RefreshInPlace(); });
}

void frmImo::cmdPlan_Click(Procedure& running) {
  const std::string asset = Text("NRCRT");
  if (asset.empty()) {
    MsgBoxEx("Selectati va rog o inregistrare !", kCritical);
    return;
  }
  running.line = 1;
  const Recordset& row = datPrimaryRS->Recordset();
  if (const char* refusal = PlanRefusal(row.Get("IESIRE"), row.Get("TIP_AM"))) {
    MsgBoxEx(refusal);
    return;
  }
  running.line = 2;
  {
    const Hourglass waiting;
    PlanAmortizare(asset);
  }
  running.line = 3;
  windows::Open<frmPlanAmo>().ShowPlan();
}

void frmImo::cmdInv_Click(Procedure& running) {
  if (CurrentSession().contObiecteInventar.empty()) {
    MsgBoxEx(kNoInventoryAccount, kInformation);
    OpenConfiguration();
    return;
  }
  running.line = 1;
  Connection connection(CurrentSession().connectionString);
  frmSelLuna month(this, new TransferPreview(FindSmallAssets(connection)));
  month.ShowModal();
  if (!month.OkPressed) return;
  running.line = 2;
  const DateTime day = TransferDay(month.An, month.Luna);
  const DateTime last = day.AddDays(-1);
  if (!IsValidCalcul(last)) {
    MsgBoxEx(OtherMonthText(last), kInformation);
    return;
  }
  running.line = 3;
  const TransferSelection selection = FindSmallAssets(connection);
  if (selection.assets.empty()) {
    MsgBoxEx(NothingToTransferText(selection), kInformation);
    return;
  }
  if (AskToTransfer(selection)) Transfer(connection, selection, day);
  running.line = 4;
  RefreshInPlace();
}

// The failure of a step is told under the step's own name.
void frmImo::Transfer(Connection& connection, const TransferSelection& selection,
                      const DateTime& day) {
  Transferred done;
  bool shortForm = true;
  const auto transfer = [&](Procedure& running) {
    const Hourglass waiting;
    done = TransferToInventory(connection, selection, day, [&](TransferStep step) {
      running.name = ProcedureOf(step);
      running.line = 1;
      shortForm = step == TransferStep::kCopy;
    });
  };
  const auto show = [&](const Failure& failure, const Procedure& failed) {
    shortForm ? ShowShortError(failure, failed) : ShowStandardError(failure, failed);
  };
  if (!RunWith("TrecereInInventar", transfer, show)) return;
  if (!done.warning.empty()) MsgBoxEx(done.warning, done.warningIcon);
}

}  // namespace tevra
