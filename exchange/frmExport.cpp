#include "exchange/frmExport.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "exchange/PendingExport.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/forms/frmProgress.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Paths.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr int kMargin = 16;
constexpr int kSpace = 10;

DateTime DateIn(const DateBox& box) {
  return box.Date().value();
}

}  // namespace

frmExport::frmExport(QWidget* parent) : Form("frmExport", "Export", parent) {
  Build();
  OnClick(cmdExport, "cmdExport_Click", [this](Procedure& running) { cmdExport_Click(running); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  Form_Load();
}

void frmExport::Build() {
  dtDataDeLa = new DateBox("dtDataDeLa", this);
  dtPanaLa = new DateBox("dtPanaLa", this);
  for (DateBox* box : {dtDataDeLa, dtPanaLa}) box->SetRequired();
  cmdExport =
      MakeButton("cmdExport", "Export", "Creare fisier Export.xml in subcatalogul EXPORT", this);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", this);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  cmdExport->setDefault(true);
  SetCancelButton(cmdIesire);

  auto* period = new QHBoxLayout;
  period->addSpacing(kMargin);
  for (const auto& [caption, box] : {std::pair{"De la", dtDataDeLa}, std::pair{"la", dtPanaLa}}) {
    auto* label = new QLabel(caption, this);
    label->setBuddy(box);
    period->addWidget(label);
    period->addWidget(box);
    period->addSpacing(kSpace);
  }
  period->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* button : {cmdExport, cmdIesire}) buttons->addWidget(button);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->setSpacing(kSpace);
  for (const char* text :
       {"Se vor exporta urmatoarele tabele: ", "- Conturi, Centre de cost, Jurnale, Terti",
        "- Inregistrari contabile cuprinse in intervalul:"}) {
    all->addWidget(new QLabel(text, this));
  }
  all->addLayout(period);
  all->addStretch();
  all->addLayout(buttons);
  resize(minimumSizeHint());
  OrderTabs({dtDataDeLa, dtPanaLa, cmdExport, cmdIesire});
}

void frmExport::Form_Load() {
  Run("Form_Load", [this](Procedure& running) {
    running.line = 1;
    dtDataDeLa->SetDate(CurrentSession().dataIn);
    dtPanaLa->SetDate(CurrentSession().dataSn);
    running.line = 2;
    connection_.Open(CurrentSession().connectionString);
  });
}

void frmExport::cmdExport_Click(Procedure& running) {
  running.line = 1;
  paths::MakeFolder(ExportRoot());
  running.line = 2;
  OpenConnection(connection_);
  running.line = 3;
  if (GenerateXML()) MsgBoxEx("Export cu succes", kInformation);
}

bool frmExport::GenerateXML() {
  bool done = false;
  Run("GenerateXML", [&](Procedure& running) {
    running.line = 1;
    Exported exported = Write(false);
    if (exported.result == Exported::Result::kBefore) {
      running.line = 2;
      ExportRequest period;
      period.from = DateIn(*dtDataDeLa);
      period.to = DateIn(*dtPanaLa);
      if (MsgBoxEx(ExportedBeforeText(period), kYesNo) != kYes) return;
      running.line = 3;
      exported = Write(true);
    }
    done = exported.result == Exported::Result::kDone;
  });
  return done;
}

Exported frmExport::Write(bool again) {
  frmProgress progress("Export", {}, this);
  ExportRequest request;
  request.from = DateIn(*dtDataDeLa);
  request.to = DateIn(*dtPanaLa);
  request.again = again;
  request.progress = progress.Asked();
  request.run = [this](const char* procedure, const std::string& /*table*/, const auto& step) {
    // Cancelling is no failure, so it passes through.
    return Run(procedure, [&](Procedure&) { step(); });
  };
  return tevra::GenerateXML(connection_, request);
}

}  // namespace tevra
