// The controls of frmImport and their places.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "exchange/ChangesText.h"
#include "exchange/frmImport.h"
#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"

namespace tevra {

namespace {

constexpr int kMargin = 12;
constexpr int kRowSpace = 6;
constexpr int kWidth = 760;
constexpr int kHeight = 520;

QGroupBox* Group(const char* name, const char* caption, QWidget* screen) {
  auto* group = new QGroupBox(caption, screen);
  group->setObjectName(name);
  return group;
}

void AddPair(QHBoxLayout* row, const char* caption, QWidget* box, int stretch) {
  auto* label = new QLabel(caption, box->parentWidget());
  label->setBuddy(box);
  row->addWidget(label);
  row->addWidget(box, stretch);
}

}  // namespace

void frmImport::Build() {
  frmSelFile = Group("frmSelFile", "Import ", this);
  txtFileName = new TextBox("txtFileName", frmSelFile);
  txtFileName->setReadOnly(true);
  cmdSelFile =
      MakeButton("cmdSelFile", "...", "Cautare cale de acces la fisierul de importat", frmSelFile);
  auto* file = new QHBoxLayout(frmSelFile);
  AddPair(file, "Fisier", txtFileName, 1);
  file->addWidget(cmdSelFile);
  BuildHeader();
  BuildChanges();
  cmdImport =
      MakeButton("cmdImport", "Import", "Import conturi, jurnale, centre de cost, terti", this);
  cmdIesire = MakeButton("cmdIesire", "Iesire", "Inchidere fereastra", this);
  cmdIesire->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdIesire);
  Place();
  GiveFocus(cmdSelFile);
}

void frmImport::BuildHeader() {
  frmInfo = Group("frmInfo", "", this);
  txtCodSocietate = new TextBox("txtCodSocietate", frmInfo);
  txtDeLa = new TextBox("txtDeLa", frmInfo);
  txtPanaLa = new TextBox("txtPanaLa", frmInfo);
  for (TextBox* box : {txtCodSocietate, txtDeLa, txtPanaLa}) {
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
  }
  optDa = new OptionButton("optDa", "Da ", frmInfo);
  optNu = new OptionButton("optNu", "Nu", frmInfo);
  for (OptionButton* option : {optDa, optNu}) option->setEnabled(false);
  auto* row = new QHBoxLayout(frmInfo);
  AddPair(row, "Cod Societate", txtCodSocietate, 1);
  AddPair(row, "Data de la", txtDeLa, 2);
  AddPair(row, "pana la", txtPanaLa, 2);
  row->addSpacing(kMargin);
  row->addWidget(new QLabel("Este Centru", frmInfo));
  row->addWidget(optDa);
  row->addWidget(optNu);
}

void frmImport::BuildChanges() {
  frmModificari = Group("frmModificari", "Ce se importa", this);
  grdModificari = new QTableWidget(0, static_cast<int>(kChangeCaptions.size()), frmModificari);
  grdModificari->setObjectName("grdModificari");
  grdModificari->setAccessibleName("Ce se importa");
  grdModificari->setHorizontalHeaderLabels({kChangeCaptions.begin(), kChangeCaptions.end()});
  grdModificari->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grdModificari->setSelectionBehavior(QAbstractItemView::SelectRows);
  grdModificari->setTabKeyNavigation(false);
  grdModificari->verticalHeader()->hide();
  grdModificari->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowSpace);
  grdModificari->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
  grdModificari->setColumnWidth(0, kWidth / 5);
  lblLinii = new QLabel(frmModificari);
  lblLinii->setObjectName("lblLinii");
  lblLinii->setWordWrap(true);
  lblStare = new QLabel(frmModificari);
  lblStare->setObjectName("lblStare");
  lblStare->setWordWrap(true);
  lblStare->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblStare->hide();
  auto* column = new QVBoxLayout(frmModificari);
  column->addWidget(grdModificari, 1);
  column->addWidget(lblLinii);
  column->addWidget(lblStare);
}

void frmImport::Place() {
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* button : {cmdImport, cmdIesire}) buttons->addWidget(button);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  all->addWidget(frmSelFile);
  all->addWidget(frmInfo);
  all->addWidget(frmModificari, 1);
  all->addLayout(buttons);
  OrderTabs({txtFileName, cmdSelFile, grdModificari, cmdImport, cmdIesire});
  resize(kWidth, kHeight);
}

}  // namespace tevra
