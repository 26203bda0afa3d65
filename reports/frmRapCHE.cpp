#include "reports/frmRapCHE.h"

#include <QVBoxLayout>

#include "accounting/ChargePostings.h"
#include "engine/Module3.h"
#include "platform/forms/FormsApplication.h"
#include "platform/forms/Hourglass.h"
#include "platform/system/Clock.h"
#include "platform/text/Dates.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

frmRapCHE::frmRapCHE(QWidget* parent)
    : ReportScreen("frmRapCHE", "Listare Cheltuieli cu amortizarea", parent) {
  Build();
  Connect();
  Form_Load();
}

void frmRapCHE::Connect() {
  connect(MonthView1, &QCalendarWidget::selectionChanged, this, [this] { MonthView1_Click(); });
  connect(cmdCalcul, &QPushButton::clicked, this,
          [this] { AfterEvent(this, [this] { cmdCalcul_Click(); }); });
  connect(cmdCMCancel, &QPushButton::clicked, this, [this] { close(); });
  OnClick(cmdListare, "cmdListare_Click",
          [this](Procedure& running) { cmdListare_Click(running); });
}

void frmRapCHE::Form_Load() {
  Run("Form_Load", [this](Procedure& procedure) {
    procedure.line = 1;
    const DateTime today = clock::Today();
    MonthView1->setSelectedDate(QDate(today.Year(), today.Month(), today.Day()));
    procedure.line = 2;
    MonthView1_Click();
    procedure.line = 3;
    LoadRequest();
  });
}

// The run uses exactly the selected day, so the label shows the full date.
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

// Posts after a failed run too, with the rates that the register has then.
void frmRapCHE::pAddNoteContabile() {
  Run("pAddNoteContabile", [this](Procedure& procedure) {
    procedure.line = 1;
    Connection connection(CurrentSession().connectionString);
    PrepareMonth(connection);
    const MonthUse others = OthersUnderMonth(connection, SelectedDate());
    if (!MayReplace(others)) return;
    const Hourglass waiting;
    procedure.line = 2;
    PostCharges(connection, SelectedDate(), others);
  });
}

void frmRapCHE::cmdListare_Click(Procedure& running) {
  running.line = 1;
  const DateTime date = SelectedDate();
  ChargesRequest request;
  request.grouping = bGrupare();
  request.currency = Currency();
  request.month = date.Month();
  request.year = date.Year();
  request.detail = !ckbDetaliu->isChecked();
  ShowReport(running, [&] { return ChargesReport(request); });
}

DateTime frmRapCHE::SelectedDate() const {
  const QDate date = MonthView1->selectedDate();
  return {date.year(), date.month(), date.day()};
}

}  // namespace tevra
