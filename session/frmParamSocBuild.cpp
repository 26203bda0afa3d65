// The boxes of the company's configuration and where they stand.
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "platform/forms/Pictures.h"
#include "platform/screens/BoxPairs.h"
#include "session/frmParamSoc.h"

namespace tevra {

/// A field of kv_info as its frame shows it.
struct InfoField {
  std::string field;
  const char* caption;
  const char* tip;
  int row;
  int column;  ///< of three pairs of label and box
  int span = 1;
  bool number = false;
};

namespace {

// The boxes of one of the two addresses, row by row; `which` ends the names of their fields.
std::vector<InfoField> AddressFields(char which) {
  struct Box {
    const char* field;
    const char* caption;
    const char* tip;
  };
  static constexpr Box kBoxes[] = {{"STRADA", "Strada", "Maxim 30 caractere alfanumerice"},
                                   {"NR", "Nr.", "Maxim 4 caractere alfanumerice"},
                                   {"BLOC", "Bloc", "Maxim 4 caractere alfanumerice"},
                                   {"AP", "Ap.", "Maxim 4 caractere alfanumerice"},
                                   {"CODPOSTAL", "Cod postal", "Maxim 10 caractere alfanumerice"},
                                   {"ORAS", "Oras", "Maxim 35 caractere alfanumerice"},
                                   {"JUDET", "Judet", "Maxim 2 caractere alfanumerice"},
                                   {"SECTOR", "Sector", "Maxim 3 caractere alfanumerice"},
                                   {"TELEFON", "Telefon", "Maxim 15 caractere alfanumerice"},
                                   {"FAX", "Fax", "Maxim 15 caractere alfanumerice"},
                                   {"EMAIL", "E-mail", "Maxim 30 caractere alfanumerice"}};
  std::vector<InfoField> fields;
  for (const Box& box : kBoxes) {
    const std::string name = std::string(box.field) + which;
    if (name == "SECTOR2") continue;  // not in kv_info
    const int place = static_cast<int>(fields.size());
    fields.push_back({name, box.caption, box.tip, place / 3, place % 3});
  }
  fields.back().span = 2;
  return fields;
}

}  // namespace

void frmParamSoc::Build() {
  SSTab1 = new QTabWidget(this);
  SSTab1->setObjectName("SSTab1");
  SSTab1->addTab(Scrolled(BuildInfo()), "&Date generale");
  SSTab1->addTab(Scrolled(BuildYears()), "E&xercitiu financiar");
  SSTab1->addTab(Scrolled(BuildConfiguration()), "&Configurari");
  lblStare = new QLabel(this);
  lblStare->setObjectName("lblStare");
  connect(SSTab1, &QTabWidget::currentChanged, lblStare, &QLabel::clear);
  cmdSalvare = new QPushButton("Salvare", this);
  cmdSalvare->setObjectName("cmdSalvare");
  cmdSalvare->setToolTip("Salvare modificari");
  cmdSalvare->setIcon(PictureIcon("\\BMP\\OK.bmp"));
  cmdSalvare->setDefault(true);
  cmdCancel = new QPushButton("Iesire", this);
  cmdCancel->setObjectName("cmdCancel");
  cmdCancel->setToolTip("Inchidere fereastra");
  cmdCancel->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  for (QPushButton* button : {cmdSalvare, cmdCancel}) button->setMinimumWidth(100);
  SetCancelButton(cmdCancel);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(lblStare, 1);
  buttons->addWidget(cmdSalvare);
  buttons->addWidget(cmdCancel);
  auto* all = new QVBoxLayout(this);
  all->addWidget(SSTab1, 1);
  all->addLayout(buttons);
  setMinimumSize(480, 240);
  resize(760, 592);
}

QGroupBox* frmParamSoc::BuildInfoFrame(const char* name, const char* caption,
                                       const std::vector<InfoField>& fields) {
  auto* frame = new QGroupBox(caption);
  frame->setObjectName(name);
  auto* grid = new QGridLayout(frame);
  for (const InfoField& info : fields) {
    const std::string control = "txt" + info.field;
    QLineEdit* box = nullptr;
    if (info.number) {
      auto* number = new NumberBox(control.c_str(), {}, frame);
      number->SetDataField(adoInfoSoc, info.field);
      box = number;
    } else {
      auto* text = new TextBox(control.c_str(), frame);
      text->SetDataField(adoInfoSoc, info.field);
      box = text;
    }
    box->setToolTip(info.tip);
    box->setMinimumWidth(64);
    grid->addWidget(LabelOf(box, info.caption), info.row, 2 * info.column);
    grid->addWidget(box, info.row, 2 * info.column + 1, 1, 2 * info.span - 1);
    txtInfo[info.field] = box;
  }
  for (int column = 1; column < 6; column += 2) grid->setColumnStretch(column, 1);
  return frame;
}

QWidget* frmParamSoc::BuildInfo() {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  all->addWidget(BuildInfoFrame(
      "frmSocietate", "Societate",
      {{"DENUMIRE", "Denumire", "Denumire societate, maxim 35 caractere alfanumerice", 0, 0, 2},
       {"TIP", "Tip", "SRL sau SA", 0, 2},
       {"CODFISCAL", "Cod fiscal", "Maxim 14 caractere alfanumerice", 1, 0},
       {"NREGCOM", "Nr.Reg.Comert", "Maxim 30 caractere alfanumerice", 1, 1},
       {"CAPSOC", "Capital social", "Valoare numerica", 1, 2, 1, true},
       {"FP", "Forma de proprietate", "Maxim 4 cifre", 2, 0},
       {"RAMURA", "Cod CAEN", "Maxim 4 cifre", 2, 1},
       {"PLATITVA", "Platitor TVA", "D pentru DA, N pentru NU", 2, 2},
       {"DEPARTAMEN", "Departament", "Maxim 255 caractere alfanumerice", 3, 0},
       {"TITULAR", "Titular", "Maxim 255 caractere alfanumerice", 3, 1, 2},
       {"BANCA", "Banca", "Maxim 35 caractere alfanumerice", 4, 0},
       {"CONTBANCAR", "Cont bancar", "Maxim 30 caractere alfanumerice", 4, 1, 2}}));
  all->addWidget(BuildInfoFrame("frmAdresaSediu", "Adresa Sediu Social", AddressFields('1')));
  all->addWidget(BuildInfoFrame("frmAdresaPunct", "Adresa Punct de Lucru", AddressFields('2')));
  all->addStretch();
  return page;
}

QWidget* frmParamSoc::BuildYears() {
  static constexpr const char* kFields[] = {"DATAIN",  "DATASN", "DATAIN1",
                                            "DATASN1", "DATAIC", "DATASC"};
  static constexpr const char* kTitles[] = {"Exercitiul N", "Exercitiul N+1",
                                            "Perioada de culegere"};
  static constexpr const char* kExplained[] = {
      "Exercitiul N reprezinta exercitiul financiar in curs.Introduceti data de inceput si data de "
      "sfarsit.",
      "Exercitiul N+1 reprezinta exercitiul financiar urmator. Introduceti data de inceput si data "
      "de sfarsit.",
      "Perioada de culegere reprezinta intervalul pentru care autorizati culegerea inregistrarilor "
      "contabile."};
  auto* page = new QWidget;
  auto* frame = new QGroupBox("Exercitiu financiar", page);
  frame->setObjectName("frmExercitiu");
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(14);
  for (int period = 0; period < 3; ++period) {
    const auto first = static_cast<std::size_t>(2 * period);
    auto* explained = new QLabel(kExplained[period], frame);
    explained->setWordWrap(true);
    grid->addWidget(explained, 2 * period, 0, 1, 6);
    grid->addWidget(new QLabel(kTitles[period], frame), 2 * period + 1, 0);
    for (std::size_t i = first; i < first + 2; ++i) {
      const std::string name = "DTPicker1(" + std::to_string(i) + ")";
      DTPicker1[i] = new DateBox(name.c_str(), frame);
      DTPicker1[i]->SetDataField(AdoExercitiu, kFields[i]);
      const int column = i == first ? 1 : 3;
      grid->addWidget(LabelOf(DTPicker1[i], i == first ? "inceput" : "sfarsit"), 2 * period + 1,
                      column);
      grid->addWidget(DTPicker1[i], 2 * period + 1, column + 1);
    }
    grid->setRowMinimumHeight(2 * period, 44);
  }
  grid->setColumnStretch(5, 1);
  auto* all = new QVBoxLayout(page);
  all->addWidget(frame);
  all->addStretch();
  return page;
}

QWidget* frmParamSoc::BuildCoefficients() {
  static constexpr const char* kCaptions[] = {"intre 2 si 5 ani", "intre 5 si 10 ani",
                                              "mai mare de 10 ani"};
  auto* frame = new QGroupBox("Coeficienti de amortizare degresiva");
  frame->setObjectName("frmCoeficienti");
  frmCoeficienti_ = frame;
  auto* form = new QFormLayout(frame);
  dtpInceput = new DateBox("dtpInceput", frame);
  dtpInceput->SetDataField(adoCoefAD, "inceput");
  form->addRow("Se aplica incepand cu data de:", dtpInceput);
  for (std::size_t i = 0; i < txtCoefDeg.size(); ++i) {
    const std::string name = "txtCoefDeg(" + std::to_string(i) + ")";
    txtCoefDeg[i] = new NumberBox(name.c_str(), {}, frame);
    txtCoefDeg[i]->SetDataField(adoCoefAD, "coef" + std::to_string(i + 1));
    txtCoefDeg[i]->setMaximumWidth(120);
    txtCoefDeg[i]->setProperty("Tag", kCaptions[i]);
    form->addRow(kCaptions[i], txtCoefDeg[i]);
  }
  adoCoefAD->show();
  form->addRow(adoCoefAD);
  return frame;
}

QWidget* frmParamSoc::BuildAccounts() {
  static constexpr const char* kCaptions[] = {"Cont furnizor", "Cont client",
                                              "Cont obiect inventar"};
  static constexpr const char* kFields[] = {"CONTFURNIZORI", "CONTCLIENTI", "CONTObiecteInventar"};
  auto* frame = new QGroupBox("Configurare conturi");
  frame->setObjectName("frmConfigurari");
  auto* form = new QFormLayout(frame);
  for (std::size_t i = 0; i < cboCont.size(); ++i) {
    const std::string number = "(" + std::to_string(i) + ")";
    cboCont[i] = new DataCombo(("cboCont" + number).c_str(), frame);
    txtConfig[i] = new TextBox(("txtConfig" + number).c_str(), frame);
    txtConfig[i]->hide();
    txtConfig[i]->SetDataField(adoConfigurari, kFields[i]);
    connect(cboCont[i], &DataCombo::Picked, this,
            [this, i] { txtConfig[i]->SetText(cboCont[i]->BoundText()); });
    connect(adoConfigurari, &Adodc::MoveComplete, this, [this, i] { ShowAccount(i); });
    form->addRow(kCaptions[i], cboCont[i]);
  }
  cboDeviza = new DataCombo("cboDeviza", frame);
  cboDeviza->setMaximumWidth(160);
  form->addRow("Deviza", cboDeviza);
  return frame;
}

QWidget* frmParamSoc::BuildCharges() {
  auto* frame = new QGroupBox("Note contabile");
  frame->setObjectName("frmNoteContabile");
  chkDocumentAn =
      new CheckBox("chkDocumentAn", "Documentul lunii contine anul (IMO07/2026)", frame);
  chkDocumentAn->setToolTip(
      "Nebifat: IMO07 in fiecare an, deci notele unei luni le inlocuiesc pe cele ale aceleiasi "
      "luni "
      "din alt an");
  (new QVBoxLayout(frame))->addWidget(chkDocumentAn);
  return frame;
}

QWidget* frmParamSoc::BuildConfiguration() {
  auto* page = new QWidget;
  auto* all = new QVBoxLayout(page);
  all->addWidget(BuildCoefficients());
  all->addWidget(BuildAccounts());
  all->addWidget(BuildCharges());
  all->addStretch();
  return page;
}

}  // namespace tevra
