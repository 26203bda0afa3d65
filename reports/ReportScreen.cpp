#include "reports/ReportScreen.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Hourglass.h"
#include "platform/forms/Pictures.h"
#include "platform/print/frmPreview.h"
#include "platform/system/Clock.h"

namespace tevra {

ReportScreen::ReportScreen(const char* name, const QString& caption, QWidget* parent)
    : Form(name, caption, parent), currency_(this) {
  ckbDeviza = currency_.ckbDeviza;
  cboCodDeviza = currency_.cboCodDeviza;
}

QGroupBox* ReportScreen::MakeGrouping(const std::vector<ReportGrouping>& groupings,
                                      bool firstAgain) {
  frmOptiuni = new QGroupBox("Optiuni", this);
  frmOptiuni->setObjectName("frmOptiuni");
  auto* column = new QVBoxLayout(frmOptiuni);
  for (std::size_t i = 0; i < groupings.size(); ++i) {
    const ReportGrouping& each = groupings[i];
    OptionButton* option = *each.member = new OptionButton(each.name, each.caption, frmOptiuni);
    column->addWidget(option);
    groupings_.push_back(option);
    if (i == 0 && !firstAgain) continue;
    connect(option, &OptionButton::Click, this,
            [this, i] { bGrupare_ = static_cast<std::uint8_t>(i); });
  }
  return frmOptiuni;
}

void ReportScreen::LoadRequest() {
  groupings_.front()->setChecked(true);
  bGrupare_ = 0;
  currency_.Load();
}

void ReportScreen::ShowReport(Procedure& running,
                              const std::function<std::unique_ptr<BandedReport>()>& make) {
  ++running.line;
  std::unique_ptr<BandedReport> report;
  {
    const Hourglass waiting;
    report = make();
  }
  ++running.line;
  ShowPreview(std::move(report));
  ++running.line;
  close();
}

// ---- Over a period ------------------------------------------------------------------------------

void PeriodReportScreen::Open(PeriodReportDescription description) {
  description_ = std::move(description);
  auto* all = new QVBoxLayout(this);
  all->addWidget(BuildPeriod());
  auto* choices = new QHBoxLayout;
  choices->addWidget(MakeGrouping(description_.groupings, true), 1);
  choices->addWidget(BuildOptions(), 1);
  all->addLayout(choices);
  all->addStretch();
  all->addLayout(BuildButtons());
  OrderControls();
  OnClick(cmdCMOK, "cmdCMOK_Click", [this](Procedure& running) { cmdCMOK_Click(running); });
  connect(cmdCMCancel, &QPushButton::clicked, this, [this] { close(); });
  Run("Form_Load", [this](Procedure& running) {
    running.line = 1;
    for (DateBox* date : {DTPickerdela, DTPickerla}) date->SetDate(clock::Today());
    running.line = 2;
    LoadRequest();
  });
  GiveFocus(DTPickerdela);
  resize(460, 300);
}

QWidget* PeriodReportScreen::BuildPeriod() {
  fraData = new QGroupBox("Perioada", this);
  fraData->setObjectName("fraData");
  auto* row = new QHBoxLayout(fraData);
  const auto add = [&](const char* label, const char* caption, const char* name) {
    auto* words = new QLabel(caption, fraData);
    words->setObjectName(label);
    auto* date = new DateBox(name, fraData, "dd/MM/yyyy");
    date->SetRequired();
    words->setBuddy(date);
    row->addWidget(words);
    row->addWidget(date);
    return date;
  };
  DTPickerdela = add("lblDatadela", "De la", "DTPickerdela");
  DTPickerla = add("lblDatapanala", "la ", "DTPickerla");
  row->addStretch();
  return fraData;
}

QWidget* PeriodReportScreen::BuildOptions() {
  Frame2 = new QGroupBox(description_.options, this);
  Frame2->setObjectName("Frame2");
  cboCodDeviza->setMaximumWidth(110);
  auto* grid = new QGridLayout(Frame2);
  int row = 0;
  for (QWidget* each : description_.more) grid->addWidget(each, row++, 0, 1, 2);
  grid->addWidget(ckbDeviza, row, 0);
  grid->addWidget(cboCodDeviza, row, 1);
  grid->setRowStretch(row + 1, 1);
  return Frame2;
}

QLayout* PeriodReportScreen::BuildButtons() {
  cmdCMOK = MakeButton("cmdCMOK", "OK", "Listarea pe ecran", this);
  cmdCMOK->setDefault(true);
  cmdCMCancel = MakeButton("cmdCMCancel", "Iesire", "Inchidere fereastra", this);
  cmdCMCancel->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdCMCancel);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(cmdCMOK);
  row->addWidget(cmdCMCancel);
  return row;
}

void PeriodReportScreen::OrderControls() {
  std::vector<QWidget*> order{DTPickerdela, DTPickerla};
  for (const ReportGrouping& each : description_.groupings) order.push_back(*each.member);
  order.insert(order.end(), description_.more.begin(), description_.more.end());
  order.insert(order.end(), {ckbDeviza, cboCodDeviza, cmdCMOK, cmdCMCancel});
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void PeriodReportScreen::cmdCMOK_Click(Procedure& running) {
  running.line = 1;
  PeriodRequest request;
  request.grouping = bGrupare();
  request.currency = Currency();
  request.from = DTPickerdela->Date().value();
  request.to = DTPickerla->Date().value();
  ShowReport(running, [&] { return description_.report(request); });
}

}  // namespace tevra
