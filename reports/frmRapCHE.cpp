#include "reports/frmRapCHE.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "accounting/ChargePostings.h"
#include "engine/Module3.h"
#include "platform/forms/Hourglass.h"
#include "platform/system/Clock.h"
#include "platform/text/Dates.h"
#include "session/Session.h"

namespace tevra {

frmRapCHE::frmRapCHE(QWidget* parent)
    : Form("frmRapCHE", "Listare Cheltuieli cu amortizarea", parent) {
  Build();
  connect(MonthView1, &QCalendarWidget::selectionChanged, this, [this] { MonthView1_Click(); });
  connect(cmdCalcul, &QPushButton::clicked, this, [this] { cmdCalcul_Click(); });
  connect(cmdCMCancel, &QPushButton::clicked, this, [this] { close(); });
  Form_Load();
}

void frmRapCHE::Build() {
  Frame1 = new QGroupBox("Atentie!", this);
  Frame1->setObjectName("Frame1");
  Label1 = new QLabel(
      "Inainte de Listare, va rugam efectuati Calculul amortizarilor pentru luna dorita.", Frame1);
  Label1->setObjectName("Label1");
  Label1->setWordWrap(true);
  (new QVBoxLayout(Frame1))->addWidget(Label1);

  MonthView1 = new QCalendarWidget(this);
  MonthView1->setObjectName("MonthView1");
  MonthView1->setLocale(QLocale(QLocale::Romanian, QLocale::Romania));
  MonthView1->setFirstDayOfWeek(Qt::Monday);
  MonthView1->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  MonthView1->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  MonthView1->setGridVisible(true);

  lblData = new QLabel(this);
  lblData->setObjectName("lblData");

  fraDiverse = new QGroupBox(this);
  fraDiverse->setObjectName("fraDiverse");
  chkGenNoteContabile = new CheckBox("chkGenNoteContabile", "Note Contabile", fraDiverse);
  chkGenNoteContabile->setToolTip("Scrie si notele contabile ale lunii, in locul celor vechi");
  (new QVBoxLayout(fraDiverse))->addWidget(chkGenNoteContabile);

  cmdCalcul = new QPushButton("Calcule", this);
  cmdCalcul->setObjectName("cmdCalcul");
  cmdCalcul->setDefault(true);
  cmdCMCancel = new QPushButton("Iesire", this);
  cmdCMCancel->setObjectName("cmdCMCancel");
  for (QPushButton* button : {cmdCalcul, cmdCMCancel}) button->setMinimumSize(110, 32);

  auto* buttons = new QVBoxLayout;
  buttons->addWidget(fraDiverse);
  buttons->addWidget(cmdCalcul);
  buttons->addStretch();
  buttons->addWidget(cmdCMCancel);

  auto* calendar = new QVBoxLayout;
  calendar->addWidget(MonthView1, 1);
  calendar->addWidget(lblData);

  auto* middle = new QHBoxLayout;
  middle->addLayout(calendar, 1);
  middle->addLayout(buttons);

  auto* all = new QVBoxLayout(this);
  all->addWidget(Frame1);
  all->addLayout(middle, 1);
  SetCancelButton(cmdCMCancel);
  MonthView1->setMinimumSize(360, 240);
  MonthView1->setFocus();
  resize(540, 370);
}

void frmRapCHE::Form_Load() {
  Run("Form_Load", [this](Procedure& procedure) {
    procedure.line = 1;
    const DateTime today = clock::Today();
    MonthView1->setSelectedDate(QDate(today.Year(), today.Month(), today.Day()));
    procedure.line = 2;
    MonthView1_Click();
  });
}

// The run takes exactly the day that is marked, so the day is told in full.
void frmRapCHE::MonthView1_Click() {
  lblData->setText("Data de calcul: " + QString::fromStdString(ShortDate(SelectedDate())));
}

void frmRapCHE::cmdCalcul_Click() {
  Run("cmdCalcul_Click", [this](Procedure& procedure) {
    procedure.line = 1;
    const DateTime date = SelectedDate();
    procedure.line = 2;
    CalculLunar(date);
    procedure.line = 3;
    if (chkGenNoteContabile->isChecked()) pAddNoteContabile();
  });
}

// Also behind a run that failed: then by the rates that stand in the register.
void frmRapCHE::pAddNoteContabile() {
  Run("pAddNoteContabile", [this](Procedure& procedure) {
    const Hourglass waiting;
    procedure.line = 1;
    Connection connection(CurrentSession().connectionString);
    procedure.line = 2;
    PostCharges(connection, SelectedDate());
  });
}

DateTime frmRapCHE::SelectedDate() const {
  const QDate date = MonthView1->selectedDate();
  return {date.year(), date.month(), date.day()};
}

}  // namespace tevra
