// The card's boxes and their layout.
#include <QButtonGroup>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/screens/BoxPairs.h"
#include "register/frmFisaImo.h"

namespace tevra {

namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

struct TextInfo {
  const char* tag;
  int longest;
  const char* tip;
};

constexpr TextInfo kTexts[] = {
    {"Numar inventar", 20, "Maxim 20 caractere alfanumerice"},
    {"Cod grupa", 0, nullptr},
    {"Denumire", 50, "Maxim 50 caractere alfanumerice"},
    {"Centru cost", 0, nullptr},
    {"Localizare", 0, nullptr},
    {"Document", 15, "Maxim 15 caractere alfanumerice"},
    {"Furnizor", 0, nullptr},
    {"Cota TVA", 0, nullptr},
    {"Cont imobilizare", 0, nullptr},
    {"", 0, nullptr},
    {"Observatii", 100, "Maxim 100 caractere alfanumerice"},
};

struct NumberInfo {
  const char* tag;
  bool money;
};

// Money is shown with thousands separators and two decimals; rates and durations with all digits.
constexpr NumberInfo kNumbers[] = {
    {"Valoare LEI", true},
    {"Curs", false},
    {"Valoare USD", true},
    {"Durata normala", false},
    {"Durata reala", false},
    {"Coeficient amortizare", false},
    {"Grad de utilizare", false},
    {"Valoare blocata LEI", true},
    {"Valoare blocata USD", true},
    {"", false},
    {"", false},
    {"", false},
    {"", false},
    {"", true},
    {"", true},
};

constexpr int kShortNumber = 90;

}  // namespace

void frmFisaImo::MakeBoxes() {
  for (std::size_t i = 0; i < txtText.size(); ++i) {
    txtText[i] = new TextBox(Indexed("txtText", i).c_str(), this, kTexts[i].longest);
    txtText[i]->setProperty("Tag", kTexts[i].tag);
    if (kTexts[i].tip) txtText[i]->setToolTip(kTexts[i].tip);
    // The other boxes hold the value of a combo or an option.
    if (kTexts[i].longest == 0) txtText[i]->hide();
  }
  for (std::size_t i = 0; i < txtNumar.size(); ++i) {
    txtNumar[i] =
        new NumberBox(Indexed("txtNumar", i).c_str(), kNumbers[i].money ? "Standard" : "", this);
    txtNumar[i]->setProperty("Tag", kNumbers[i].tag);
  }
  for (const auto hidden : {kUse, kNrCrt}) txtNumar[hidden]->hide();
  for (const auto narrow : {kNormalYears, kRealYears, kRate, kCoef}) {
    txtNumar[narrow]->setMinimumWidth(kShortNumber);
  }
  for (const auto narrowest : {kYearsLeft, kMonthsLeft}) {
    txtNumar[narrowest]->setMinimumWidth(44);
    txtNumar[narrowest]->setMaximumWidth(60);
  }
  for (std::size_t i = 0; i < DTPicker1.size(); ++i) {
    DTPicker1[i] = new DateBox(Indexed("DTPicker1", i).c_str(), this, "d/MM/yyyy");
    DTPicker1[i]->SetRequired();
  }
  cboGrupa = MakeCombo("cboGrupa", "Grupa de Imobilizare");
  cboCentruCost = MakeCombo("cboCentruCost", "");
  cboLocalizare = MakeCombo("cboLocalizare", "");
  cboFurnizori = MakeCombo("cboFurnizori", "Furnizorul");
  cboFurnizori->setMinimumContentsLength(20);  // a company's name
  cboTVA = MakeCombo("cboTVA", "TVA");
  cboCont = MakeCombo("cboCont", "Contul");
  cboGradUtiliz = MakeCombo("cboGradUtiliz", "Gradul de utilizare");
}

DataCombo* frmFisaImo::MakeCombo(const char* name, const char* tag) {
  auto* combo = new DataCombo(name, this);
  combo->setProperty("Tag", tag);
  return combo;
}

QWidget* frmFisaImo::BuildIdentity() {
  QGroupBox* frame = MakeFrame("Frame1", "Imobilizare");
  BoxPairs pairs(frame);
  pairs.Add("Nr. inv.", txtText[kCode]);
  pairs.Add("&Denumire", txtText[kName]);
  pairs.Add("Cod &grupa", cboGrupa);
  pairs.Add("Cont imo&bilizare", cboCont);
  pairs.Add("&Centru de cost", cboCentruCost);
  pairs.Add("&Localizare", cboLocalizare);
  pairs.Close();
  return frame;
}

QWidget* frmFisaImo::BuildPurchase() {
  QGroupBox* frame = MakeFrame("Frame3", "Cumparare");
  BoxPairs pairs(frame);
  pairs.Add("D&ocument", txtText[kDocument]);
  pairs.Add("Furni&zor", cboFurnizori);
  pairs.Add("TVA", cboTVA);
  pairs.Add("Valoare LEI", txtNumar[kValue]);
  pairs.Add("C&urs", txtNumar[kExchangeRate]);
  pairs.Add("Valoare valuta", txtNumar[kForeignValue]);
  pairs.Close();
  return frame;
}

OptionButton* frmFisaImo::MakeOption(Method method) {
  const MethodTraits& traits = TraitsOf(method);
  auto* option = new OptionButton(traits.option, traits.caption, Frame6);
  option->setProperty("Letter", QString(QChar(static_cast<char>(method))));
  return option;
}

QWidget* frmFisaImo::BuildMethod() {
  Frame6 = MakeFrame("Frame6", "Tip de amortizare");
  Liniara = MakeOption(kLinear);
  Accelerata = MakeOption(kAccelerated);
  CuUzura = MakeOption(kWithWear);
  FaraUzura = MakeOption(kWithoutWear);
  Faraam = MakeOption(kNoDepreciation);
  txtNumar[kCoef]->setToolTip(
      "Coeficientul primei faze; se poate schimba la amortizarea accelerata");
  auto* grid = new QGridLayout(Frame6);
  grid->setVerticalSpacing(5);
  int row = 0;
  for (OptionButton* option : Options()) grid->addWidget(option, row++, 0, 1, 2);
  grid->addWidget(LabelOf(txtNumar[kCoef], "Coeficient"), row, 0);
  grid->addWidget(txtNumar[kCoef], row, 1);
  grid->setRowStretch(row + 1, 1);
  return Frame6;
}

QWidget* frmFisaImo::BuildDurations() {
  QGroupBox* frame = MakeFrame("Frame4", "Durata");
  BoxPairs pairs(frame);
  pairs.Add("&Normala", txtNumar[kNormalYears], "ani");
  pairs.Add("Reala", txtNumar[kRealYears], "ani");
  pairs.Add("Cota anuala", txtNumar[kRate]);
  pairs.Add("Grad de utilizare", cboGradUtiliz);
  pairs.Close();
  return frame;
}

QWidget* frmFisaImo::BuildDates() {
  QGroupBox* frame = MakeFrame("Frame5", "Date");
  BoxPairs pairs(frame);
  pairs.Add("Achizitie", DTPicker1[kBought]);
  pairs.Add("Punere in functiune", DTPicker1[kInService]);
  pairs.Add("Inceput amortizare", DTPicker1[kStart]);
  pairs.Add("Sfarsit amortizare", DTPicker1[kEnd]);
  pairs.Close();
  return frame;
}

QWidget* frmFisaImo::BuildExpense() {
  Frame7 = MakeFrame("Frame7", "Trecere direct in cheltuieli");
  chkChelt = new CheckBox("chkChelt", "20%", Frame7);
  BoxPairs pairs(Frame7);
  pairs.AddAcross(chkChelt);
  pairs.Add("Valoare Lei", txtNumar[kExpensed]);
  pairs.Add("Valoare Valuta", txtNumar[kExpensedForeign]);
  pairs.Close();
  return Frame7;
}

QWidget* frmFisaImo::BuildBlocking() {
  QGroupBox* frame = MakeFrame("Frame8", "Blocare");
  chkBlocata = new CheckBox("chkBlocata", "Blocata", frame);
  auto* left = new QHBoxLayout;
  left->setSpacing(5);
  left->addWidget(LabelOf(txtNumar[kYearsLeft], "Durata ramasa"));
  left->addWidget(txtNumar[kYearsLeft]);
  left->addWidget(new QLabel("ani si"));
  left->addWidget(txtNumar[kMonthsLeft]);
  left->addWidget(new QLabel("luni"));
  left->addStretch();
  BoxPairs pairs(frame);
  pairs.AddAcross(chkBlocata);
  pairs.Add("Data", DTPicker1[kBlockedFrom]);
  pairs.Add("Valoare blocata LEI", txtNumar[kBlockedValue]);
  pairs.Add("Valoare blocata USD", txtNumar[kBlockedForeignValue]);
  pairs.AddAcross(left);
  pairs.Close();
  return frame;
}

QWidget* frmFisaImo::BuildButtons() {
  Frame2 = new QGroupBox(this);
  Frame2->setObjectName("Frame2");
  cmdSalvare = MakeButton("cmdSalvare", "Adaugare", "Creare imobilizare noua", Frame2);
  cmdModificare = MakeButton("cmdModificare", "Salvare", "Salvare modificari", Frame2);
  cmdVanzare = MakeButton("cmdVanzare", "Iesire imobilizare",
                          "Iesire imobilizare prin casare sau vanzare", Frame2);
  cmdConservare = MakeButton("cmdConservare", "Conservare", "", Frame2);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", Frame2);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  auto* row = new QHBoxLayout(Frame2);
  row->setContentsMargins(8, 6, 8, 6);
  for (QPushButton* each : {cmdSalvare, cmdModificare, cmdVanzare, cmdConservare}) {
    row->addWidget(each);
  }
  row->addStretch();
  row->addWidget(cmdIesire);
  return Frame2;
}

void frmFisaImo::Build() {
  MakeBoxes();
  auto* page = new QWidget;
  grid_ = new QGridLayout;
  frames_ = {BuildIdentity(),  BuildPurchase(), BuildDates(),   BuildMethod(),
             BuildDurations(), BuildExpense(),  BuildBlocking()};
  Arrange(false);
  auto* remarks = new QHBoxLayout;
  remarks->addWidget(LabelOf(txtText[kRemarks], "Observatii"));
  remarks->addWidget(txtText[kRemarks], 1);
  auto* whole = new QVBoxLayout(page);
  whole->addLayout(grid_);
  whole->addLayout(remarks);
  whole->addStretch();
  // Where the card does not fit, it scrolls and the buttons stay visible.
  auto* all = new QVBoxLayout(this);
  all->addWidget(Scrolled(page), 1);
  all->addWidget(BuildButtons());
  SetCancelButton(cmdIesire);
  SetTabOrder();
  wide_ = page->minimumSizeHint().width() + 40;
  setMinimumSize(560, 240);
  resize(page->sizeHint().expandedTo({1100, 0}) + QSize(24, 90));
  txtText[kCode]->setFocus();
}

// Frames in two rows, or in four rows of two when the card is narrow.
void frmFisaImo::Arrange(bool narrow) {
  struct Place {
    int row, column, columns;
  };
  static constexpr Place kWide[] = {{0, 0, 2}, {0, 2, 1}, {0, 3, 1}, {1, 0, 1},
                                    {1, 1, 1}, {1, 2, 1}, {1, 3, 1}};
  static constexpr Place kNarrow[] = {{0, 0, 2}, {1, 0, 1}, {1, 1, 1}, {2, 0, 1},
                                      {2, 1, 1}, {3, 0, 1}, {3, 1, 1}};
  for (std::size_t i = 0; i < frames_.size(); ++i) {
    const Place& place = narrow ? kNarrow[i] : kWide[i];
    grid_->addWidget(frames_[i], place.row, place.column, 1, place.columns);
  }
  for (int column = 0; column < 4; ++column) {
    grid_->setColumnStretch(column, narrow && column > 1 ? 0 : column == 2 ? 4 : 2);
  }
  narrow_ = narrow;
}

void frmFisaImo::resizeEvent(QResizeEvent* event) {
  Form::resizeEvent(event);
  if (narrow_ != (width() < wide_)) Arrange(!narrow_);
}

// The labels' shortcuts are letters that the frame's menu does not use.
//
// The tab order is the reading order: the asset, its purchase, its dates, its depreciation.
void frmFisaImo::SetTabOrder() {
  QWidget* before = nullptr;
  const auto then = [&before](std::initializer_list<QWidget*> boxes) {
    for (QWidget* next : boxes) {
      if (before) setTabOrder(before, next);
      before = next;
    }
  };
  then({txtText[kCode], txtText[kName], cboGrupa, cboCont, cboCentruCost, cboLocalizare});
  then({txtText[kDocument], cboFurnizori, cboTVA});
  then({txtNumar[kValue], txtNumar[kExchangeRate], txtNumar[kForeignValue]});
  then({DTPicker1[kBought], DTPicker1[kInService], DTPicker1[kStart], DTPicker1[kEnd]});
  then({Liniara, Accelerata, CuUzura, FaraUzura, Faraam, txtNumar[kCoef]});
  then({txtNumar[kNormalYears], txtNumar[kRealYears], txtNumar[kRate], cboGradUtiliz});
  then({chkChelt, txtNumar[kExpensed], txtNumar[kExpensedForeign]});
  then({chkBlocata, DTPicker1[kBlockedFrom], txtNumar[kBlockedValue]});
  then({txtNumar[kBlockedForeignValue], txtNumar[kYearsLeft], txtNumar[kMonthsLeft]});
  then({txtText[kRemarks], cmdSalvare, cmdModificare, cmdVanzare, cmdConservare, cmdIesire});
}

}  // namespace tevra
