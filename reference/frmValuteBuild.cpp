// The controls of frmValute and their places.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableView>
#include <QVBoxLayout>

#include "platform/forms/ButtonRow.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/screens/InputFrame.h"
#include "reference/frmValute.h"
#include "session/Lists.h"

namespace tevra {

void frmValute::Build() {
  BuildGrids();
  QWidget* rates = BuildRates();
  QWidget* input = BuildInput();
  BuildButtons();
  Place(rates, input);
  SetCancelButton(cmdIesire);
  OrderTabs({grdValute->View(), cboNumarCursuri, grdCursValuta->View(), optCurs, optValuta,
             dteDataCurs, txtCurs, txtCodValuta, txtDenumireValuta, cmdCautaCurs, cmdAdauga,
             cmdPreluare, cmdIesire});
  setMinimumSize(600, 360);
  resize(820, 520);
  GiveFocus(grdValute);
}

// The code of a currency is the key of its rates; names and rates can be corrected in their cells.
void frmValute::BuildGrids() {
  adoValute = new Adodc("adoValute", this);
  adoCursValute = new Adodc("adoCursValute", this);
  for (Adodc* source : {adoValute, adoCursValute}) source->hide();
  grdValute = new DataGrid("grdValute", this);
  grdValute->SetColumns({{"Cod", "COD", {}, {}, 8, true}, {"Titlu", "TITLU", {}, {}, 30}});
  grdCursValuta = new DataGrid("grdCursValuta", this);
  grdCursValuta->SetColumns({{"Cod", "COD", {}, {}, 8, true},
                             {"Data", "DATA", "dd.MM.yyyy", {}, 12, true},
                             {"Curs", "CURS", {}, {}, 14}});
  grdValute->SetDataSource(adoValute);
  grdCursValuta->SetDataSource(adoCursValute);
  for (DataGrid* grid : {grdValute, grdCursValuta}) {
    grid->SetAllowUpdate(true);
    grid->SetTools(GridKey("frmValute." + grid->objectName().toStdString()), windowTitle());
    grid->View()->horizontalHeader()->setStretchLastSection(true);
  }
}

QWidget* frmValute::BuildRates() {
  auto* side = new QWidget(this);
  Label1 = new QLabel("Cursuri afisate", side);
  Label1->setObjectName("Label1");
  cboNumarCursuri = new QComboBox(side);
  cboNumarCursuri->setObjectName("cboNumarCursuri");
  cboNumarCursuri->addItems({"5", "10", "30", "60", "90", "Toate"});
  Label1->setBuddy(cboNumarCursuri);
  auto* top = new QHBoxLayout;
  top->addWidget(Label1);
  top->addWidget(cboNumarCursuri);
  top->addStretch();
  auto* all = new QVBoxLayout(side);
  all->setContentsMargins(0, 0, 0, 0);
  all->addLayout(top);
  all->addWidget(grdCursValuta, 1);
  return side;
}

QWidget* frmValute::BuildInput() {
  auto* input = new QWidget(this);
  fraOptions = new QGroupBox(input);
  fraOptions->setObjectName("fraOptions");
  optCurs = new OptionButton("optCurs", "Curs", fraOptions);
  optValuta = new OptionButton("optValuta", "Valuta", fraOptions);
  optCurs->setChecked(true);
  auto* options = new QVBoxLayout(fraOptions);
  options->addWidget(optCurs);
  options->addWidget(optValuta);

  fraCurs = MakeInputFrame("fraCurs", "Curs", input);
  lblValuta = new QLabel(fraCurs);
  lblValuta->setObjectName("lblValuta");
  QFont bold = lblValuta->font();
  bold.setBold(true);
  lblValuta->setFont(bold);
  dteDataCurs = new DateBox("dteDataCurs", fraCurs);
  dteDataCurs->SetRequired();
  txtCurs = new NumberBox("txtCurs", "", fraCurs);
  PlaceBoxes(fraCurs, {{"Valuta", lblValuta}, {"Data", dteDataCurs}, {"Curs", txtCurs, 2}}, 3);

  fraValuta = MakeInputFrame("fraValuta", "Valuta", input);
  txtCodValuta = new TextBox("txtCodValuta", fraValuta, 10);
  txtCodValuta->setToolTip("Cod Valuta");
  txtDenumireValuta = new TextBox("txtDenumireValuta", fraValuta, 50);
  txtDenumireValuta->setToolTip("Denumire Valuta");
  for (TextBox* box : {txtCodValuta, txtDenumireValuta}) box->SetUpperCase();
  PlaceBoxes(fraValuta, {{"Cod", txtCodValuta}, {"Denumire", txtDenumireValuta, 3}}, 2);

  frames_ = new QStackedWidget(input);
  frames_->addWidget(fraCurs);
  frames_->addWidget(fraValuta);
  auto* row = new QHBoxLayout(input);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(fraOptions);
  row->addWidget(frames_, 1);
  return input;
}

void frmValute::BuildButtons() {
  buttons_ = new QWidget(this);
  cmdCautaCurs = MakeButton("cmdCautaCurs", "Cautare", "Cautare curs sau valuta", buttons_);
  cmdAdauga = MakeButton("cmdAdauga", "Adaugare", "Creare curs sau valuta noua", buttons_);
  cmdPreluare = MakeButton(
      "cmdPreluare", "Preluare BNR",
      "Preluare cursuri ale Bancii Nationale, dintr-un fisier XML sau de pe internet", buttons_);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", buttons_);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  auto* row = new ButtonRow(buttons_);
  for (QPushButton* button : {cmdCautaCurs, cmdAdauga, cmdPreluare, cmdIesire}) {
    row->addWidget(button);
  }
}

void frmValute::Place(QWidget* rates, QWidget* input) {
  auto* lists = new QHBoxLayout;
  lists->addWidget(grdValute, 1);
  lists->addWidget(rates, 1);
  auto* all = new QVBoxLayout(this);
  all->addLayout(lists, 1);
  all->addWidget(input);
  all->addWidget(buttons_);
}

}  // namespace tevra
