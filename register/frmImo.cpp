#include "register/frmImo.h"

#include <QTableView>
#include <algorithm>
#include <utility>

#include "engine/PlanAmortizare.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Windows.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "register/AssetList.h"
#include "register/frmFisaImo.h"
#include "register/frmPlanAmo.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {}  // namespace

namespace {

// The asset that is to be opened may not be the one on the current row.
bool LacksNewCode(const std::string& nrcrt) {
  const Recordset asset =
      OpenRecordset("SELECT COD_GR_NOU FROM I_IMO WHERE NRCRT = CLng(?)", {nrcrt});
  return !asset.Eof() && asset.Get(0).TextOrEmpty().empty();
}

}  // namespace

frmImo::frmImo(QWidget* parent) : Form("frmImo", "Imobilizari", parent) {
  Build();
  Connect();
  RunShort("Form_Load", [this](Procedure& running) { Form_Load(running); });
}

// The rows hold the company file open.
frmImo::~frmImo() {
  datPrimaryRS->Close();
}

void frmImo::Connect() {
  OnClickShort(cmdCauta, "cmdCauta_Click", [this](Procedure& running) { cmdCauta_Click(running); });
  OnClickShort(cmdCreare, "cmdCreare_Click", [this](Procedure&) { cmdCreare_Click(); });
  OnClickShort(cmdModificare, "cmdModificare_Click", [this](Procedure&) { cmdModificare_Click(); });
  OnClickShort(CommandButton3, "CommandButton3_Click",
               [this](Procedure& running) { CommandButton3_Click(running); });
  OnClickShort(cmdListare, "cmdListare_Click",
               [this](Procedure& running) { cmdListare_Click(running); });
  OnClickShort(cmdPlan, "cmdPlan_Click", [this](Procedure& running) { cmdPlan_Click(running); });
  OnClickShort(cmdInv, "cmdInv_Click", [](Procedure&) {
    MsgBoxEx("Trecerea in inventar nu este disponibila in aceasta versiune a programului !",
             kInformation);
  });
  OnClickShort(cmdClose, "cmdClose_Click", [this](Procedure&) { close(); });
  OnClickShort(cmdUp, "cmdUp_Click", [this](Procedure&) { Sort(1); });
  OnClickShort(cmdDown, "cmdDown_Click", [this](Procedure&) { Sort(2); });
  connect(txtCautare, &QLineEdit::returnPressed, cmdCauta, &QPushButton::click);
  connect(TDBGrid1, &DataGrid::SelChange, this,
          [this] { RunShort("TDBGrid1_SelChange", [this](Procedure&) { TDBGrid1_SelChange(); }); });
  connect(TDBGrid1->View(), &QTableView::activated, cmdModificare, &QPushButton::click);
}

void frmImo::Form_Load(Procedure& running) {
  extTDBGrid->SetTDBGridName("TDBGrid1");
  const Hourglass waiting;
  running.line = 1;
  sSelectBaza_ = AssetListStatement();
  datPrimaryRS->SetConnectionString(CurrentSession().connectionString);
  datPrimaryRS->SetRecordSource(sSelectBaza_ + kNewestFirst);
  datPrimaryRS->Refresh();
  running.line = 2;
  ShowFooters(TotalsOfAllAssets(datPrimaryRS->GetConnection()));
  ShowRecCount();
  fresh_ = true;
}

// Coming back from the card shows the saved row, at the place where the user left the list.
void frmImo::Form_Activate() {
  if (std::exchange(fresh_, false)) return;
  TDBGrid1->RefreshInPlace("NRCRT");
  ShowRecCount();
}

void frmImo::ShowRecCount() {
  const Recordset& rows = datPrimaryRS->Recordset();
  const QString count = QString::number(rows.IsOpen() ? rows.RecordCount() : 0);
  Label1->setText(count);
  lblRecCount->setText(count);
}

void frmImo::ShowFooters(const std::array<double, 6>& totals) {
  for (std::size_t i = 0; i < totals.size(); ++i) {
    TDBGrid1->SetFooter(kTotalledFields[i], QString::fromStdString(Format(totals[i], "#,##0")));
  }
}

// Where nothing is marked any more, the row marked before stays the one that was selected last.
void frmImo::TDBGrid1_SelChange() {
  const std::vector<std::size_t> marked = TDBGrid1->SelectedRows();
  if (marked.empty()) return;
  const Recordset& rows = datPrimaryRS->Recordset();
  const bool onCurrent =
      datPrimaryRS->HasRow() && std::binary_search(marked.begin(), marked.end(), rows.Position());
  const std::size_t row = onCurrent ? rows.Position() : marked.front();
  sNrCrt = rows.ValueAt(row, rows.FieldIndex("NRCRT")).TextOrEmpty();
}

void frmImo::Sort(long sortType) {
  extTDBGrid->SetSortType(sortType);
  extTDBGrid->Sort();
}

void frmImo::cmdCauta_Click(Procedure& running) {
  const std::string typed = txtCautare->text().toStdString();
  const std::string term = Trim(typed);
  running.line = 1;
  if (term.empty()) {
    datPrimaryRS->SetRecordSource(kAssetsByNumber);
    datPrimaryRS->Refresh();
  } else {
    const Hourglass waiting;
    const Values prefix{term + "%"};
    const std::string found = AssetSearchStatement();
    running.line = 2;
    if (datPrimaryRS->GetConnection().OpenKeyset(found, prefix).RecordCount() > 0) {
      datPrimaryRS->SetRecordSource(found, prefix);
      datPrimaryRS->Refresh();
    } else {
      MsgBoxEx("Nu exista inregistrari ale caror denumire sa inceapa cu " + typed + " !",
               kInformation);
    }
  }
  GiveFocus(txtCautare);
  ShowRecCount();
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
  const bool onRow = TDBGrid1->View()->currentIndex().isValid();
  const bool uncoded = onRow && TDBGrid1->ColumnText(TDBGrid1->ColumnOf("COD_GR_NOU")).empty();
  if (uncoded || LacksNewCode(sNrCrt)) {
    MsgBoxEx("Va rog asociati un cod nou de clasificare in Tabela Coduri de clasificare");
    return;
  }
  bAdaugare = false;
  OpenAssetCard({bAdaugare, sNrCrt});
}

void frmImo::CommandButton3_Click(Procedure& running) {
  if (!datPrimaryRS->HasRow()) return;
  const std::string question = "Sunteti sigur ca doriti sa efectuati stergerea inregistrarii " +
                               TDBGrid1->ColumnText(TDBGrid1->ColumnOf("NRCRT")) + " - " +
                               TDBGrid1->ColumnText(TDBGrid1->ColumnOf("DENUMIRE")) + " ?";
  const std::int32_t asset = datPrimaryRS->Recordset().Get("NRCRT").AsLong();
  running.line = 1;
  if (MsgBoxEx(question, long{kYesNo} | kDefaultStep, "Confirmare stergere") != kYes) return;
  running.line = 2;
  ExecuteSQL("delete * from i_imo where nrcrt = ?", {asset});
  running.line = 3;
  TDBGrid1->RefreshInPlace("NRCRT");
  ShowRecCount();
}

// Black on white with bold headings is how every list is printed; the grid keeps its colours.
void frmImo::cmdListare_Click(Procedure& running) {
  Total();
  running.line = 1;
  PreviewGridAfterSetup(TDBGrid1->Content(DataGrid::Rows::kMarked), TDBGrid1->PrintInfo(),
                        windowTitle());
}

void frmImo::Total() {
  RunShort("Total", [this](Procedure&) {
    const Hourglass waiting;
    const Recordset& rows = datPrimaryRS->Recordset();
    std::vector<std::size_t> fields;
    for (const char* field : kTotalledFields) fields.push_back(rows.FieldIndex(field));
    ListedTotals totals;
    Values values(fields.size());
    for (const std::size_t row : TDBGrid1->SelectedRows()) {
      for (std::size_t i = 0; i < fields.size(); ++i) values[i] = rows.ValueAt(row, fields[i]);
      totals.Add(values);
    }
    ShowFooters(totals.Totals());
  });
}

void frmImo::cmdPlan_Click(Procedure& running) {
  const std::string asset = TDBGrid1->ColumnText(TDBGrid1->ColumnOf("NRCRT"));
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

}  // namespace tevra
