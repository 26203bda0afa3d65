#include "reference/frmPreluare.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/system/MessageBox.h"
#include "platform/system/Settings.h"
#include "platform/text/Strings.h"
#include "platform/web/HttpsGet.h"
#include "session/Lists.h"
#include "session/Module1.h"

namespace tevra {

namespace {

constexpr const char* kUsualAddress = "https://curs.bnr.ro/nbrfxrates.xml";
constexpr int kLongestAddress = 500;

std::string AddressKey() {
  return UserKey("Cursuri", "Adresa");
}

}  // namespace

frmPreluare::frmPreluare(QWidget* parent) : Form("frmPreluare", "Preluare BNR", parent) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setWindowModality(Qt::ApplicationModal);
  Build();
  txtAdresa->SetText(Settings().Get(AddressKey()).value_or(kUsualAddress));
  connect(optAdresa, &OptionButton::Click, this, [this] { txtAdresa->setEnabled(true); });
  connect(optFisier, &OptionButton::Click, this, [this] { txtAdresa->setEnabled(false); });
  OnClick(cmdOk, "cmdOk_Click", [this](Procedure&) { cmdOk_Click(); });
  connect(cmdCancel, &QPushButton::clicked, this, [this] { hide(); });
  GiveFocus(optFisier);
}

void frmPreluare::Build() {
  optFisier = new OptionButton("optFisier", "Dintr-un &fisier XML al Bancii Nationale", this);
  optAdresa = new OptionButton("optAdresa", "De la &adresa:", this);
  optFisier->setChecked(true);
  txtAdresa = new TextBox("txtAdresa", this, kLongestAddress);
  txtAdresa->setToolTip("Adresa https a fisierului cu cursuri; se asteapta cel mult 10 secunde");
  txtAdresa->setMinimumWidth(360);
  txtAdresa->setEnabled(false);
  cmdOk = MakeButton("cmdOk", "OK", "Preluarea cursurilor", this);
  cmdOk->setIcon(PictureIcon("\\BMP\\OK.bmp"));
  cmdOk->setDefault(true);
  cmdCancel = MakeButton("cmdCancel", "Iesire", "Fara preluarea cursurilor", this);
  cmdCancel->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdCancel);
  auto* address = new QHBoxLayout;
  address->addWidget(optAdresa);
  address->addWidget(txtAdresa, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOk);
  buttons->addWidget(cmdCancel);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(14, 14, 14, 12);
  all->setSpacing(12);
  all->addWidget(optFisier);
  all->addLayout(address);
  all->addLayout(buttons);
  OrderTabs({optFisier, optAdresa, txtAdresa, cmdOk, cmdCancel});
}

void frmPreluare::cmdOk_Click() {
  Adresa = optAdresa->isChecked() ? Trim(txtAdresa->Text()) : std::string();
  if (optAdresa->isChecked()) {
    try {
      RequireHttps(Adresa);
    } catch (const Failure& failure) {
      MsgBoxEx(failure.Description(), kCritical, windowTitle().toStdString());
      return GiveFocus(txtAdresa);
    }
    Settings().Set(AddressKey(), Adresa);
  }
  OkPressed = true;
  hide();
}

}  // namespace tevra
