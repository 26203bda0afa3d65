#include "register/frmSelLuna.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/system/Clock.h"
#include "platform/text/Numbers.h"

namespace tevra {

frmSelLuna::frmSelLuna(QWidget* parent, QWidget* shown)
    : Form("frmSelLuna", "Selectati luna", parent) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setWindowModality(Qt::ApplicationModal);
  Build(shown);
  OnClick(cmdOk, "cmdOk_Click", [this](Procedure&) { cmdOk_Click(); });
  connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
  Run("Form_Load", [this](Procedure&) { DTPicker->SetDate(clock::Today()); });
  GiveFocus(DTPicker);
}

void frmSelLuna::Build(QWidget* shown) {
  DTPicker = new DateBox("DTPicker", this, "MM/yyyy");
  DTPicker->SetRequired();
  DTPicker->setMinimumWidth(110);
  auto* label = new QLabel("&Luna:", this);
  label->setBuddy(DTPicker);
  auto* month = new QHBoxLayout;
  month->addWidget(label);
  month->addWidget(DTPicker);
  month->addStretch();
  cmdOk = MakeButton("cmdOk", "OK", "Luna aleasa", this);
  cmdOk->setIcon(PictureIcon("\\BMP\\OK.bmp"));
  cmdOk->setDefault(true);
  cmdCancel = MakeButton("cmdCancel", "Iesire", "Fara alegerea unei luni", this);
  cmdCancel->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdCancel);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOk);
  buttons->addWidget(cmdCancel);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(14, 14, 14, 12);
  all->setSpacing(12);
  all->addLayout(month);
  if (shown) all->addWidget(shown, 1);
  all->addLayout(buttons);
  OrderTabs({DTPicker, cmdOk, cmdCancel});
}

void frmSelLuna::cmdOk_Click() {
  const DateTime chosen = *DTPicker->Date();
  Luna = CByte(chosen.Month());
  An = CInt(chosen.Year());
  OkPressed = true;
  hide();
}

void frmSelLuna::cmdCancel_Click() {
  OkPressed = false;
  hide();
}

}  // namespace tevra
