#include "platform/print/frmPageSetup.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/print/PageSettings.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"

namespace tevra {
namespace {

struct Edge {
  const char* caption;
  const char* named;  // in a message
};
constexpr std::array<Edge, 4> kEdges = {{{"S&tanga:", "din stanga"},
                                         {"&Dreapta:", "din dreapta"},
                                         {"&Sus:", "de sus"},
                                         {"&Jos:", "de jos"}}};

}  // namespace

frmPageSetup::frmPageSetup(const QPageLayout& layout, bool ofKind, QWidget* parent)
    : Form("frmPageSetup", "Asezare in pagina", parent) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint);
  Build();
  chkGeneral->setVisible(ofKind);
  Fill(layout);
  OnClick(cmdAccept, "cmdAccept_Click", [this](Procedure&) { cmdAccept_Click(); });
  connect(cmdRenunta, &QPushButton::clicked, this, [this] { close(); });
}

void frmPageSetup::Build() {
  cboHartie = new QComboBox(this);
  cboHartie->setObjectName("cboHartie");
  cboHartie->setToolTip("Formatul hartiei");
  for (const Paper& paper : Papers()) cboHartie->addItem(paper.name);
  auto* label = new QLabel("&Hartie:", this);
  label->setBuddy(cboHartie);
  auto* paper = new QHBoxLayout;
  paper->addWidget(label);
  paper->addWidget(cboHartie, 1);
  auto* orientation = new QGroupBox("Orientare", this);
  optPortret = new OptionButton("optPortret", "&Portret", orientation);
  optPeisaj = new OptionButton("optPeisaj", "P&eisaj", orientation);
  auto* options = new QHBoxLayout(orientation);
  options->addWidget(optPortret);
  options->addWidget(optPeisaj);
  options->addStretch(1);
  options->setSpacing(24);
  QWidget* margins = BuildMargins();
  chkGeneral = new CheckBox("chkGeneral", "Si pentru documentele &fara asezare proprie", this);
  chkGeneral->setToolTip("Altfel asezarea este numai a acestui fel de lista sau raport");
  cmdAccept = MakeButton("cmdAccept", "&Accept", "Pagina va fi asezata asa", this);
  cmdAccept->setIcon(PictureIcon("\\BMP\\OK.bmp"));
  cmdAccept->setDefault(true);
  cmdRenunta = MakeButton("cmdRenunta", "&Renunta", "Pagina ramane cum este", this);
  cmdRenunta->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdRenunta);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdAccept);
  buttons->addWidget(cmdRenunta);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(14, 14, 14, 12);
  all->setSpacing(12);
  all->addLayout(paper);
  all->addWidget(orientation);
  all->addWidget(margins);
  all->addWidget(chkGeneral);
  all->addStretch(1);
  all->addLayout(buttons);
  setMinimumWidth(360);
}

QWidget* frmPageSetup::BuildMargins() {
  auto* frame = new QGroupBox("Margini (mm)", this);
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(10);
  for (std::size_t i = 0; i < txtMargine.size(); ++i) {
    const int number = static_cast<int>(i);
    txtMargine[i] = new NumberBox(QString("txtMargine(%1)").arg(number).toLatin1(), {}, frame);
    txtMargine[i]->setToolTip(QString("Marginea %1, intre %2 si %3 mm")
                                  .arg(kEdges[i].named)
                                  .arg(kLeastMargin)
                                  .arg(kMostMargin));
    txtMargine[i]->setMaximumWidth(90);
    auto* label = new QLabel(kEdges[i].caption, frame);
    label->setBuddy(txtMargine[i]);
    grid->addWidget(label, number / 2, number % 2 * 3);
    grid->addWidget(txtMargine[i], number / 2, number % 2 * 3 + 1);
  }
  grid->setColumnMinimumWidth(2, 16);
  grid->setColumnStretch(5, 1);
  return frame;
}

void frmPageSetup::Fill(const QPageLayout& layout) {
  const auto known = std::find_if(Papers().begin(), Papers().end(), [&](const Paper& paper) {
    return paper.size == layout.pageSize().id();
  });
  cboHartie->setCurrentIndex(known == Papers().end() ? 0
                                                     : static_cast<int>(known - Papers().begin()));
  (layout.orientation() == QPageLayout::Landscape ? optPeisaj : optPortret)->setChecked(true);
  const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
  txtMargine[0]->SetNumber(margins.left());
  txtMargine[1]->SetNumber(margins.right());
  txtMargine[2]->SetNumber(margins.top());
  txtMargine[3]->SetNumber(margins.bottom());
}

bool frmPageSetup::Validare() {
  for (std::size_t i = 0; i < txtMargine.size(); ++i) {
    NumberBox& box = *txtMargine[i];
    const double margin = box.IsNumeric() ? *box.Number() : 0;
    if (margin >= kLeastMargin && margin <= kMostMargin) continue;
    ShowMessage({QString("Marginea %1 trebuie sa fie un numar intre %2 si %3 mm !")
                     .arg(kEdges[i].named)
                     .arg(kLeastMargin)
                     .arg(kMostMargin)
                     .toStdString(),
                 kCritical,
                 windowTitle().toStdString(),
                 {}});
    GiveFocus(&box);
    box.selectAll();
    return false;
  }
  return true;
}

void frmPageSetup::cmdAccept_Click() {
  if (!Validare()) return;
  const auto number = [this](std::size_t i) { return *txtMargine[i]->Number(); };
  const auto paper = static_cast<std::size_t>(cboHartie->currentIndex());
  const QPageLayout layout = MakePageLayout(
      Papers()[paper].size, optPeisaj->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait,
      QMarginsF(number(0), number(2), number(1), number(3)));
  if (!HasRoomToPrint(layout)) {
    ShowMessage({QString("Marginile nu lasa loc pe hartia %1: trebuie sa ramana cel putin %2 x %2 "
                         "mm de tiparit !")
                     .arg(Papers()[paper].name)
                     .arg(kLeastArea)
                     .toStdString(),
                 kCritical,
                 windowTitle().toStdString(),
                 {}});
    return;
  }
  chosen_ = layout;
  close();
}

bool AskPageSetup(QPageLayout& layout, const std::string& kind) {
  frmPageSetup screen(layout, !kind.empty(), QApplication::activeWindow());
  screen.setWindowModality(Qt::ApplicationModal);
  screen.ShowModal();
  if (!screen.Chosen()) return false;
  layout = *screen.Chosen();
  try {
    RememberPageLayout(layout, kind);
    if (screen.chkGeneral->isChecked()) RememberPageLayout(layout);
  } catch (const Failure& failure) {
    // The page is used for this document even if it cannot be remembered.
    ShowShortError(failure, {"AskPageSetup", "Form", "frmPageSetup"});
  }
  return true;
}

}  // namespace tevra
