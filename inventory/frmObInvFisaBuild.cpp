// The boxes of the card of an inventory object and their layout.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "inventory/frmObInvFisa.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/screens/BoxPairs.h"

namespace tevra {

namespace {

using namespace object;

struct TextInfo {
  int longest;  ///< 0: hidden
  const char* tip;
};

constexpr TextInfo kTextInfos[kTexts] = {{20, "Maxim 20 caractere alfanumerice"},
                                         {0, nullptr},
                                         {50, "Maxim 50 caractere alfanumerice"},
                                         {0, nullptr},
                                         {15, "Maxim 15 caractere alfanumerice"},
                                         {0, nullptr},
                                         {0, nullptr},
                                         {0, nullptr},
                                         {100, "Maxim 100 caractere alfanumerice"},
                                         {50, "Maxim 50 caractere alfanumerice"},
                                         {0, nullptr}};

// Rate and value in currency are shown with all their digits.
constexpr const char* kNumberFormats[kNumbers] = {"#.##0,00", "", ""};

}  // namespace

void frmObInvFisa::MakeBoxes() {
  for (std::size_t i = 0; i < kTexts; ++i) {
    const TextInfo& info = kTextInfos[i];
    txtText[i] = new TextBox(Indexed("txtText", i).c_str(), this, info.longest);
    if (info.tip) txtText[i]->setToolTip(info.tip);
    if (info.longest == 0) txtText[i]->hide();
  }
  for (std::size_t i = 0; i < kNumbers; ++i) {
    txtNumar[i] = new NumberBox(Indexed("txtNumar", i).c_str(), kNumberFormats[i], this);
  }
  for (std::size_t i = 0; i < kDates; ++i) {
    DTPicker1[i] = new DateBox(Indexed("DTPicker1", i).c_str(), this, "dd/MM/yyyy");
    DTPicker1[i]->SetRequired();
  }
  DataCombo** combos[] = {&cboCentruCost, &cboLocalizare, &cboFurnizori, &cboTVA, &cboCont};
  for (std::size_t i = 0; i < std::size(combos); ++i) {
    *combos[i] = new DataCombo(ObjectCodeLists()[i].combo, this);
  }
  cboFurnizori->setMinimumContentsLength(20);  // a company's name
}

// Three columns of boxes, each behind its label, with the remarks below them all.
QWidget* frmObInvFisa::BuildObject() {
  constexpr int kColumn = 3;  // label, box, gap
  constexpr int kGap = 10;
  Frame1 = MakeFrame("Frame1", "Obiect");
  auto* grid = new QGridLayout(Frame1);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(5);
  const std::vector<std::pair<const char*, QWidget*>> columns[] = {
      {{"Nr. inv.", txtText[kCode]},
       {"&Denumire", txtText[kName]},
       {"C&ont", cboCont},
       {"&Centru de cost", cboCentruCost},
       {"&Localizare", cboLocalizare},
       {"Persoana e&videnta", txtText[kPerson]}},
      {{"Docu&ment", txtText[kDocument]},
       {"Furni&zor", cboFurnizori},
       {"TVA", cboTVA},
       {"Valoare LEI", txtNumar[kValue]},
       {"C&urs", txtNumar[kRate]},
       {"Valoare valuta", txtNumar[kForeignValue]}},
      {{"Achizitie", DTPicker1[kBought]}, {"Punere in functiune", DTPicker1[kInService]}}};
  int left = 0;
  for (const auto& column : columns) {
    int row = 0;
    for (const auto& [caption, box] : column) {
      grid->addWidget(LabelOf(box, caption), row, left);
      grid->addWidget(box, row++, left + 1);
    }
    grid->setColumnMinimumWidth(left + 2, kGap);
    left += kColumn;
  }
  const int below = grid->rowCount();
  grid->addWidget(LabelOf(txtText[kRemarks], "Observatii"), below, 0);
  grid->addWidget(txtText[kRemarks], below, 1, 1, left - 2);
  grid->setColumnStretch(1, 4);
  grid->setColumnStretch(1 + kColumn, 3);
  grid->setColumnMinimumWidth(left - 1, 0);
  MakeReadable(Frame1);  // the card of an object that left is for reading
  return Frame1;
}

QWidget* frmObInvFisa::BuildExit() {
  Frame5 = MakeFrame("Frame5", "Iesire");
  chKCasare = new CheckBox("chKCasare", "CASARE", Frame5);
  BoxPairs pairs(Frame5);
  pairs.AddAcross(chKCasare);
  pairs.Add("Data iesire", DTPicker1[kLeft]);
  pairs.Close();
  return Frame5;
}

QWidget* frmObInvFisa::BuildNote() {
  noteFrame_ = MakeFrame(
      "fraNota", bAdaugare_ ? "Nota contabila de cumparare" : "Nota contabila de descarcare");
  grdNota = new NotePreview("grdNota", noteFrame_);
  auto* layout = new QVBoxLayout(noteFrame_);
  layout->addWidget(grdNota);
  layout->addStretch();
  return noteFrame_;
}

QWidget* frmObInvFisa::BuildButtons() {
  auto* strip = new QWidget(this);
  cmdSalvare = MakeButton("cmdSalvare", "Adaugare", "Creare obiect nou de inventar", strip);
  cmdModificare = MakeButton("cmdModificare", "Salvare", "Salvare modificari", strip);
  cmdDescarcare = MakeButton("cmdDescarcare", "Descarcare",
                             "Generare formula contabila de trecere pe cheltuieli", strip);
  cmdVanzare = MakeButton("cmdVanzare", "Casare", "", strip);
  cmdConservare = MakeButton("cmdConservare", "Conservare", "", strip);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", strip);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(0, 0, 0, 0);
  for (QPushButton* each : {cmdSalvare, cmdModificare, cmdDescarcare, cmdVanzare, cmdConservare}) {
    row->addWidget(each);
  }
  row->addStretch();
  row->addWidget(cmdIesire);
  SetCancelButton(cmdIesire);
  return strip;
}

void frmObInvFisa::Build() {
  MakeBoxes();
  auto* page = new QWidget;
  auto* whole = new QVBoxLayout(page);
  whole->addWidget(BuildObject());
  auto* below = new QHBoxLayout;
  below->addWidget(BuildExit());
  below->addWidget(BuildNote(), 1);
  whole->addLayout(below);
  whole->addStretch();
  // Where the card does not fit, it scrolls and the buttons stay visible.
  auto* all = new QVBoxLayout(this);
  all->addWidget(Scrolled(page), 1);
  all->addWidget(BuildButtons());
  SetTabOrder();
  setMinimumSize(560, 240);
  resize(page->sizeHint().expandedTo({1130, 0}) + QSize(24, 90));
  txtText[kCode]->setFocus();
}

// The reading order: the object, its purchase, its dates, its exit.
void frmObInvFisa::SetTabOrder() {
  OrderTabs({txtText[kCode],
             txtText[kName],
             cboCont,
             cboCentruCost,
             cboLocalizare,
             txtText[kPerson],
             txtText[kDocument],
             cboFurnizori,
             cboTVA,
             txtNumar[kValue],
             txtNumar[kRate],
             txtNumar[kForeignValue],
             DTPicker1[kBought],
             DTPicker1[kInService],
             txtText[kRemarks],
             chKCasare,
             DTPicker1[kLeft],
             cmdSalvare,
             cmdModificare,
             cmdDescarcare,
             cmdVanzare,
             cmdConservare,
             cmdIesire});
}

}  // namespace tevra
