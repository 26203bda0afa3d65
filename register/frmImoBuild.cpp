// How the register stands on the screen.
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/forms/ButtonRow.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "register/AssetColumns.h"
#include "register/frmImo.h"
#include "session/Lists.h"

namespace tevra {

namespace {

constexpr int kLongestName = 50;

QToolButton* MakeArrow(const char* name, const char* picture, const char* tip, QWidget* parent) {
  auto* arrow = new QToolButton(parent);
  arrow->setObjectName(name);
  arrow->setIcon(PictureIcon(picture));
  arrow->setToolTip(tip);
  arrow->setAccessibleName(tip);
  return arrow;
}

}  // namespace

void frmImo::Build() {
  datPrimaryRS = new Adodc("datPrimaryRS", this);
  TDBGrid1 = new DataGrid("TDBGrid1", this);
  TDBGrid1->SetColumns(AssetColumns());
  TDBGrid1->SetDataSource(datPrimaryRS);
  TDBGrid1->SetRowSelect(true);
  TDBGrid1->SetGroupArea(true);
  TDBGrid1->SetGroupText(
      "Aduceti aici, cu drag/drop numele coloanei dupa care doriti sa se faca gruparea.");
  TDBGrid1->SetTools(GridKey("frmImo.TDBGrid1"), windowTitle());
  GridPrintInfo print;
  print.header = "R A P O R T";
  print.headerBold = true;
  print.footer = "Editat de Kelnar Tevra       \tPagina: \\p";
  TDBGrid1->SetPrintInfo(print);
  extTDBGrid = new tevra::extTDBGrid(this);
  auto* all = new QVBoxLayout(this);
  all->addWidget(BuildSearch());
  all->addWidget(TDBGrid1, 1);
  all->addWidget(datPrimaryRS);
  all->addWidget(BuildButtons());
  datPrimaryRS->show();
  OrderTabs({txtCautare, cmdCauta, cmdUp, cmdDown, TDBGrid1->View(), datPrimaryRS, cmdCreare,
             cmdModificare, CommandButton3, cmdListare, cmdPlan, cmdInv, cmdClose});
  GiveFocus(TDBGrid1);
  resize(1000, 560);
}

QWidget* frmImo::BuildSearch() {
  auto* bar = new QWidget(this);
  txtCautare = new TextBox("txtCautare", bar, kLongestName);
  txtCautare->setToolTip("Sir de cautare");
  txtCautare->setAccessibleName("Sir de cautare");
  cmdCauta = MakeButton("cmdCauta", "Cautare", "Cautare dupa denumire", bar);
  cmdUp = MakeArrow("cmdUp", "\\BMP\\Sus.bmp", "Sortare Crescatoare", bar);
  cmdDown = MakeArrow("cmdDown", "\\BMP\\Jos.bmp", "Sortare Descrescatoare", bar);
  auto* caption = new QLabel("Nr. :", bar);
  Label1 = new QLabel(bar);
  Label1->setObjectName("Label1");
  QFont bold = Label1->font();
  bold.setBold(true);
  Label1->setFont(bold);
  // The same number stands in both; one of them is enough to see.
  lblRecCount = new QLabel(bar);
  lblRecCount->setObjectName("lblRecCount");
  lblRecCount->hide();
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(txtCautare, 1);
  row->addWidget(cmdCauta);
  row->addSpacing(12);
  row->addWidget(cmdUp);
  row->addWidget(cmdDown);
  row->addStretch(1);
  row->addWidget(caption);
  row->addWidget(Label1);
  return bar;
}

QWidget* frmImo::BuildButtons() {
  picButtons = new QWidget(this);
  picButtons->setObjectName("picButtons");
  const auto make = [this](const char* name, const char* caption, const char* tip) {
    return MakeButton(name, caption, tip, picButtons);
  };
  cmdCreare = make("cmdCreare", "Adaugare", "Creare imobilizare noua");
  cmdModificare =
      make("cmdModificare", "Modificare", "Modificare informatii pentru imobilizarea selectata");
  CommandButton3 = make("CommandButton3", "Stergere", "Stergere imobilizare selectata");
  cmdListare = make("cmdListare", "Listare", "Listare pe ecran sau pe imprimanta, linii selectate");
  cmdPlan =
      make("cmdPlan", "Plan a", "Afisare Plan de amortizare anual pentru imobilizarea selectata");
  cmdInv = make("cmdInv", "In inventar", "Transformare automata in obiecte de inventar");
  cmdClose = make("cmdClose", "Iesire", "Inchidere fereastra");
  cmdClose->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdClose);
  auto* row = new ButtonRow(picButtons);
  for (QPushButton* each :
       {cmdCreare, cmdModificare, CommandButton3, cmdListare, cmdPlan, cmdInv, cmdClose}) {
    row->addWidget(each);
  }
  return picButtons;
}

}  // namespace tevra
