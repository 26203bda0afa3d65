// The boxes of the disposal and their layout.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/screens/BoxPairs.h"
#include "register/frmIesireImo.h"

namespace tevra {

namespace {

using namespace amount;
using namespace account;

constexpr const char* kMoney = "#.##0,00";
constexpr int kLongestDocument = 255;
constexpr int kAccountWidth = 34;  // characters of a title behind its account

QLabel* MakeNotice(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setStyleSheet("color: #9c4a00");
  label->hide();
  return label;
}

}  // namespace

// Most amounts are derived, so their boxes are disabled; they are what the user checks.
NumberBox* frmIesireImo::MakeAmount(const char* name) {
  auto* box = new NumberBox(name, kMoney, this);
  box->setAlignment(Qt::AlignRight);
  MakeReadable(box);
  return box;
}

DataCombo* frmIesireImo::MakeCombo(const char* name) {
  auto* combo = new DataCombo(name, this);
  combo->setMinimumContentsLength(kAccountWidth);
  return combo;
}

void frmIesireImo::MakeBoxes() {
  for (std::size_t i = 0; i < txtValoare.size(); ++i) {
    txtValoare[i] = MakeAmount(Indexed("txtValoare", i).c_str());
    txtValoare[i]->setProperty("Tag", kAmountTags[i]);
  }
  for (std::size_t i = 0; i < txtCont.size(); ++i) {
    txtCont[i] = new TextBox(Indexed("txtCont", i).c_str(), this);
    txtCont[i]->setProperty("Tag", kAccountTags[i]);
    txtCont[i]->hide();
  }
  txtNrInv = new TextBox("txtNrInv", this);
  txtDenumire = new TextBox("txtDenumire", this);
  txtOut = new TextBox("txtOut", this);
  txtOut->hide();
  Casare = new OptionButton("Casare", "&Casare", this);
  Vanzare = new OptionButton("Vanzare", "&Vanzare", this);
  DTPicker1 = new DateBox("DTPicker1", this, "d/MM/yyyy");
  DTPicker1->SetRequired();
  cboIDClient = MakeCombo("cboIDClient");
  txtDocIesire = new TextBox("txtDocIesire", this, kLongestDocument);
  TextCump = MakeAmount("TextCump");
  TextCumpDev = MakeAmount("TextCumpDev");
  cboCheltuieli = MakeCombo("cboCheltuieli");
  cboClient = MakeCombo("cboClient");
  cboVenituri = MakeCombo("cboVenituri");
  cboTVA = MakeCombo("cboTVA");
  txtProcent = new NumberBox("txtProcent", "", this);
  MakeReadable(txtProcent);
  txtTVA = MakeAmount("txtTVA");
  // The asset's own values are only shown.
  for (TextBox* box : {txtNrInv, txtDenumire}) {
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::ClickFocus);
  }
  for (NumberBox* box : {TextCump, TextCumpDev}) box->setEnabled(false);
}

QWidget* frmIesireImo::BuildAsset() {
  QGroupBox* frame = MakeFrame("Frame1", "Caracteristici");
  lblIesita = MakeNotice("lblIesita", frame);
  txtNrInv->setMaximumWidth(180);
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(5);
  grid->addWidget(LabelOf(txtNrInv, "Nr. inv."), 0, 0);
  grid->addWidget(txtNrInv, 0, 1);
  grid->addWidget(LabelOf(txtDenumire, "Denumire"), 0, 2);
  grid->addWidget(txtDenumire, 0, 3);
  grid->addWidget(lblIesita, 1, 0, 1, 4);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 3);
  return frame;
}

QWidget* frmIesireImo::BuildExit() {
  QGroupBox* frame = MakeFrame("Frame2", "Tip iesire");
  auto* options = new QHBoxLayout;
  options->addWidget(Casare);
  options->addWidget(Vanzare);
  options->addStretch();
  BoxPairs pairs(frame);
  pairs.AddAcross(options);
  pairs.Add("&Data iesirii", DTPicker1);
  pairs.Add("C&lient", cboIDClient);
  pairs.Add("Docume&nt iesire", txtDocIesire);
  pairs.Add("Valoare de intrare LEI", TextCump);
  pairs.Add("Valoare de intrare valuta", TextCumpDev);
  pairs.Add("Valoare reziduala LEI", txtValoare[kResidual]);
  pairs.Add("Valoare reziduala valuta", txtValoare[kForeignResidual]);
  pairs.Add("Pret van&zare", txtValoare[kPrice]);
  pairs.Add("Pret vanzare valuta", txtValoare[kForeignPrice]);
  pairs.Add("+ / - Valoare", txtValoare[kDifference]);
  pairs.Add("+ / - Valoare valuta", txtValoare[kForeignDifference]);
  pairs.Close();
  return frame;
}

QWidget* frmIesireImo::BuildAccounts() {
  QGroupBox* frame = MakeFrame("Frame3", "Conturi");
  auto* column = new QVBoxLayout(frame);
  column->setSpacing(5);
  const auto add = [&](const char* caption, QWidget* box) {
    column->addWidget(LabelOf(box, caption));
    column->addWidget(box);
  };
  add("Cont de cheltuieli cu iesire imo&bilizare", cboCheltuieli);
  add("C&ont client", cboClient);
  add("Cont de venit&uri din vanzare", cboVenituri);
  add("Cod TVA la vanz&are", cboTVA);
  auto* vat = new QHBoxLayout;
  vat->addWidget(LabelOf(txtProcent, "Procent"));
  txtProcent->setMaximumWidth(60);
  vat->addWidget(txtProcent);
  vat->addSpacing(12);
  vat->addWidget(LabelOf(txtTVA, "TVA colectata"));
  vat->addWidget(txtTVA, 1);
  column->addLayout(vat);
  column->addStretch();
  return frame;
}

QWidget* frmIesireImo::BuildButtons() {
  auto* frame = new QGroupBox(this);
  frame->setObjectName("Frame4");
  cmdSalvare = MakeButton("cmdSalvare", "OK", "Efectuare iesire imobilizare din gestiune", frame);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", frame);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  cmdSalvare->setDefault(true);
  auto* row = new QHBoxLayout(frame);
  row->setContentsMargins(8, 6, 8, 6);
  row->addStretch();
  row->addWidget(cmdSalvare);
  row->addWidget(cmdIesire);
  return frame;
}

void frmIesireImo::Build() {
  MakeBoxes();
  auto* page = new QWidget;
  auto* notes = MakeFrame("frmNote", "Nota contabila care se scrie");
  notePreview = new NotePreview("tblNote", notes);
  lblAtentie = MakeNotice("lblAtentie", notes);
  auto* inside = new QVBoxLayout(notes);
  inside->addWidget(notePreview);
  inside->addWidget(lblAtentie);
  auto* right = new QVBoxLayout;
  right->addWidget(BuildAccounts());
  right->addWidget(notes);
  right->addStretch();
  auto* both = new QHBoxLayout;
  both->addWidget(BuildExit(), 2);
  both->addLayout(right, 3);
  auto* whole = new QVBoxLayout(page);
  whole->addWidget(BuildAsset());
  whole->addLayout(both);
  whole->addStretch();
  auto* area = new QScrollArea(this);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(page);
  auto* all = new QVBoxLayout(this);
  all->addWidget(area, 1);
  all->addWidget(BuildButtons());
  SetCancelButton(cmdIesire);
  OrderTabs({Casare, Vanzare, DTPicker1, cboIDClient, txtDocIesire, txtValoare[kPrice],
             cboCheltuieli, cboClient, cboVenituri, cboTVA, cmdSalvare, cmdIesire});
  setMinimumSize(560, 240);
  resize(1060, 640);
  Casare->setFocus();
}

}  // namespace tevra
