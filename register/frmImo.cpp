#include "register/frmImo.h"

#include <QHBoxLayout>
#include <QTableView>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/forms/Windows.h"
#include "register/frmFisaImo.h"
#include "session/Session.h"

namespace tevra {

frmImo::frmImo(QWidget* parent) : Form("frmImo", "Imobilizari", parent) {
  datPrimaryRS = new Adodc("datPrimaryRS", this);
  Build();
  OnClick(cmdCreare, "cmdCreare_Click", [this](Procedure&) { OpenCard(true); });
  OnClick(cmdModificare, "cmdModificare_Click", [this](Procedure&) { OpenCard(false); });
  connect(TDBGrid1->View(), &QTableView::doubleClicked, cmdModificare, &QPushButton::click);
  connect(cmdClose, &QPushButton::clicked, this, [this] { close(); });
  Run("Form_Load", [this](Procedure&) {
    datPrimaryRS->SetConnectionString(CurrentSession().connectionString);
    datPrimaryRS->SetRecordSource("select * from i_imo order by nrcrt desc");
    datPrimaryRS->Refresh();
  });
}

frmImo::~frmImo() {
  datPrimaryRS->Close();
}

void frmImo::Build() {
  TDBGrid1 = new DataGrid("TDBGrid1", this);
  TDBGrid1->SetColumns({{"Nr. crt.", "NRCRT"},
                        {"Nr. inv.", "COD", {}, {}, 14},
                        {"Denumire", "DENUMIRE", {}, {}, 34},
                        {"Document", "DOCUMENT"},
                        {"Cont", "CONT"},
                        {"Data punerii in functiune", "DATA_PF"},
                        {"Valoare Lei", "VAL_CUMP", "Standard"},
                        {"Tip amortizare", "TIP_AM"}});
  TDBGrid1->SetDataSource(datPrimaryRS);
  cmdCreare = MakeButton("cmdCreare", "Adaugare", "Creare imobilizare noua", this);
  cmdModificare = MakeButton("cmdModificare", "Modificare",
                             "Modificare informatii pentru imobilizarea selectata", this);
  cmdClose = MakeButton("cmdClose", "Iesire", "Inchidere fereastra", this);
  cmdClose->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdClose);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* each : {cmdCreare, cmdModificare, cmdClose}) buttons->addWidget(each);
  auto* all = new QVBoxLayout(this);
  all->addWidget(TDBGrid1, 1);
  all->addLayout(buttons);
  resize(900, 460);
}

// Coming back from the card shows the saved row.
void frmImo::Form_Activate() {
  datPrimaryRS->Refresh();
}

void frmImo::OpenCard(bool adds) {
  if (!adds && !datPrimaryRS->HasRow()) return;
  bAdaugare = adds;
  if (!adds) sNrCrt = datPrimaryRS->Recordset().Get("NRCRT").AsText();
  windows::Show(*new frmFisaImo({bAdaugare, sNrCrt}));
}

}  // namespace tevra
