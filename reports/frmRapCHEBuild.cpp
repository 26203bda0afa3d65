// The controls of the screen of the monthly charges and their layout.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "reports/frmRapCHE.h"

namespace tevra {

void frmRapCHE::Build() {
  Frame1 = new QGroupBox("Atentie!", this);
  Frame1->setObjectName("Frame1");
  Label1 = new QLabel(
      "Inainte de Listare, va rugam efectuati Calculul amortizarilor pentru luna dorita.", Frame1);
  Label1->setObjectName("Label1");
  Label1->setWordWrap(true);
  (new QVBoxLayout(Frame1))->addWidget(Label1);

  auto* right = new QVBoxLayout;
  auto* calendar = BuildCalendar();
  // Coming back to the account changes the mark alone: it is what the screen opens with.
  right->addWidget(MakeGrouping({{&optCont, "optCont", "&Cont"},
                                 {&optCODCL, "optCODCL", "Cod c&lasificare"},
                                 {&optLoc, "optLoc", "Locali&zare"},
                                 {&optCC, "optCC", "Centre de co&st"}},
                                false));
  right->addWidget(BuildDiverse());
  right->addStretch();
  cboCodDeviza->setMaximumWidth(110);
  auto* middle = new QHBoxLayout;
  middle->addWidget(calendar, 1);
  middle->addLayout(right);
  auto* all = new QVBoxLayout(this);
  all->addWidget(Frame1);
  all->addLayout(middle, 1);
  all->addLayout(BuildButtons());
  OrderTabs({MonthView1, optCont, optCODCL, optLoc, optCC, chkGenNoteContabile, ckbDetaliu,
             ckbDeviza, cboCodDeviza, cmdListare, cmdCalcul, cmdCMCancel});
  MonthView1->setFocus();
  resize(700, 430);
}

QWidget* frmRapCHE::BuildCalendar() {
  auto* part = new QWidget(this);
  MonthView1 = new MonthCalendar("MonthView1", part);
  MonthView1->setLocale(QLocale(QLocale::Romanian, QLocale::Romania));
  MonthView1->setFirstDayOfWeek(Qt::Monday);
  MonthView1->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  MonthView1->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  MonthView1->setGridVisible(true);
  MonthView1->setMinimumSize(330, 230);
  lblData = new QLabel(part);
  lblData->setObjectName("lblData");
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(MonthView1, 1);
  column->addWidget(lblData);
  return part;
}

QWidget* frmRapCHE::BuildDiverse() {
  fraDiverse = new QGroupBox(this);
  fraDiverse->setObjectName("fraDiverse");
  chkGenNoteContabile = new CheckBox("chkGenNoteContabile", "Note Contabile", fraDiverse);
  chkGenNoteContabile->setToolTip(
      "La Calcule: scrie si notele contabile ale lunii, in locul celor vechi");
  ckbDetaliu = new CheckBox("ckbDetaliu", "Fara detaliu", fraDiverse);
  ckbDetaliu->setToolTip("La Listare: numai grupele si totalurile");
  auto* grid = new QGridLayout(fraDiverse);
  grid->addWidget(chkGenNoteContabile, 0, 0, 1, 2);
  grid->addWidget(ckbDetaliu, 1, 0, 1, 2);
  grid->addWidget(ckbDeviza, 2, 0);
  grid->addWidget(cboCodDeviza, 2, 1);
  grid->setColumnStretch(1, 1);
  return fraDiverse;
}

QLayout* frmRapCHE::BuildButtons() {
  cmdListare = MakeButton("cmdListare", "Listare", "Listarea cheltuielilor lunii", this);
  cmdCalcul = MakeButton("cmdCalcul", "Calcule", "Calculul amortizarilor la data aleasa", this);
  cmdCMCancel = MakeButton("cmdCMCancel", "Iesire", "Inchidere fereastra", this);
  cmdCMCancel->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  cmdCalcul->setDefault(true);
  SetCancelButton(cmdCMCancel);
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (QPushButton* button : {cmdListare, cmdCalcul, cmdCMCancel}) row->addWidget(button);
  return row;
}

}  // namespace tevra
