// The form of frmTerti: its boxes and their places.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "reference/frmTerti.h"

namespace tevra {

namespace {

struct BoxInfo {
  const char* label;
  int longest;
};

constexpr BoxInfo kBoxes[party::kCount] = {
    {"Cod", 0},         {"Nume", 40},   {"Tip", 1},         {"Cod fiscal", 14}, {"Adresa ", 35},
    {"Cod postal", 10}, {"Oras", 35},   {"Tara", 35},       {"Contact", 20},    {"Telefon", 15},
    {"Fax", 15},        {"E-mail", 30}, {"Adresa ", 35},    {"Cod postal", 10}, {"Oras", 35},
    {"Tara", 35},       {"Banca", 35},  {"Cont bancar", 30}};

constexpr int kLongestCountryCode = 4;

QGroupBox* MakeFrame(const char* name, const char* caption, QWidget* parent) {
  auto* frame = new QGroupBox(caption, parent);
  frame->setObjectName(name);
  return frame;
}

// The width of a box for a few characters.
void Narrow(QWidget* box, int characters) {
  box->setMaximumWidth(box->fontMetrics().averageCharWidth() * (characters + 4));
}

}  // namespace

void frmTerti::MakeBoxes() {
  for (std::size_t i = 0; i < txtFields.size(); ++i) {
    const std::string name = "txtFields(" + std::to_string(i) + ")";
    txtFields[i] = new TextBox(name.c_str(), form_, kBoxes[i].longest);
    txtFields[i]->setAccessibleName(kBoxes[i].label);
    if (i != party::kEmail) txtFields[i]->SetUpperCase();
    if (kBoxes[i].longest > 0) {
      txtFields[i]->setToolTip(QString("Maxim %1 caractere").arg(kBoxes[i].longest));
    }
  }
  txtFields[party::kKind]->setToolTip("F, pentru Furnizori si C pentru Clienti");
  TextBox* code = txtFields[party::kCode];
  code->setReadOnly(true);
  code->setFocusPolicy(Qt::NoFocus);
  TextCT = new TextBox("TextCT", form_, kLongestCountryCode);
  TextCT->setToolTip("Cod tara, max 4 caractere");
  TextCT->setAccessibleName("Cod tara");
  Narrow(code, 8);
  code->setMinimumWidth(code->maximumWidth());
  Narrow(txtFields[party::kKind], 2);
  Narrow(TextCT, kLongestCountryCode);
}

void frmTerti::PlaceMain() {
  auto* grid = new QGridLayout(fraTert);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(5);
  const auto place = [&](int row, int column, party::Place box, int columns = 1) {
    auto* label = new QLabel(kBoxes[box].label, fraTert);
    label->setBuddy(txtFields[box]);
    grid->addWidget(label, row, column);
    grid->addWidget(txtFields[box], row, column + 1, 1, columns);
  };
  place(0, 0, party::kName, 3);
  place(1, 2, party::kFiscalCode);
  place(2, 0, party::kContact);
  place(2, 2, party::kEmail);
  place(3, 0, party::kTelephone);
  place(3, 2, party::kFax);
  place(4, 0, party::kBank);
  place(4, 2, party::kBankAccount);
  auto* kind = new QHBoxLayout;
  kind->setSpacing(8);
  kind->addWidget(txtFields[party::kKind]);
  kind->addWidget(new QLabel("Cod tara", fraTert));
  kind->addWidget(TextCT);
  kind->addWidget(new QLabel("Cod", fraTert));
  kind->addWidget(txtFields[party::kCode]);
  kind->addStretch();
  grid->addWidget(new QLabel(kBoxes[party::kKind].label, fraTert), 1, 0);
  grid->addLayout(kind, 1, 1);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
}

void frmTerti::PlaceAddress(QGroupBox* frame, const std::array<TextBox*, 4>& boxes) {
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(5);
  int row = 0;
  for (TextBox* box : boxes) {
    auto* label = new QLabel(box->accessibleName(), frame);
    label->setBuddy(box);
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row++, 1);
  }
  grid->setRowStretch(row, 1);
}

void frmTerti::BuildForm() {
  form_ = new QWidget(this);
  fraTert = MakeFrame("fraTert", "Tert", form_);
  fraAdresaFacturare = MakeFrame("fraAdresaFacturare", "Facturare", form_);
  fraAdresaLivrare = MakeFrame("fraAdresaLivrare", "Livrare", form_);
  MakeBoxes();
  PlaceMain();
  PlaceAddress(fraAdresaFacturare, {txtFields[party::kAddress], txtFields[party::kPostalCode],
                                    txtFields[party::kTown], txtFields[party::kCountry]});
  PlaceAddress(fraAdresaLivrare,
               {txtFields[party::kDeliveryAddress], txtFields[party::kDeliveryPostalCode],
                txtFields[party::kDeliveryTown], txtFields[party::kDeliveryCountry]});
  auto* row = new QHBoxLayout(form_);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(fraTert, 2);
  row->addWidget(fraAdresaFacturare, 1);
  row->addWidget(fraAdresaLivrare, 1);
}

// From the list through the form, as one reads it, to the buttons.
void frmTerti::OrderForm() {
  using enum party::Place;
  QWidget* before = Grid()->View();
  const auto then = [&before](QWidget* next) {
    setTabOrder(before, next);
    before = next;
  };
  then(txtFields[kName]);
  then(txtFields[kKind]);
  then(TextCT);
  for (const party::Place box :
       {kFiscalCode, kContact, kEmail, kTelephone, kFax, kBank, kBankAccount, kAddress, kPostalCode,
        kTown, kCountry, kDeliveryAddress, kDeliveryPostalCode, kDeliveryTown, kDeliveryCountry}) {
    then(txtFields[box]);
  }
  for (QPushButton* button : {cmdListare, cmdAdauga, cmdModifica, cmdSterge, cmdIesire}) {
    then(button);
  }
}

}  // namespace tevra
