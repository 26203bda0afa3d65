#include "platform/print/frmPrint.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/system/MessageBox.h"

namespace tevra {
namespace {

constexpr char kCaption[] = "Tiparire";
constexpr int kMostPages = 99999;
constexpr int kMostCopies = 99;

QSpinBox* MakeSpinBox(const char* name, const char* tip, int most, QWidget* parent) {
  auto* box = new QSpinBox(parent);
  box->setObjectName(name);
  box->setToolTip(tip);
  box->setRange(1, most);
  box->setAlignment(Qt::AlignRight);
  box->setMinimumWidth(84);
  return box;
}

QLabel* LabelOf(QWidget* box, const char* caption, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setBuddy(box);
  return label;
}

}  // namespace

frmPrint::frmPrint(PagedDocument& document, QWidget* parent)
    : Form("frmPrint", kCaption, parent), document_(document) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowCloseButtonHint);
  setWindowModality(Qt::ApplicationModal);
  Build();
  cboImprimanta->addItems(CurrentPrinters().names());
  const int usual = cboImprimanta->findText(CurrentPrinters().usual());
  if (usual >= 0) cboImprimanta->setCurrentIndex(usual);
  optToate->setChecked(true);
  txtPanaLa->setValue(std::max(1, document.PageCount()));
  for (QSpinBox* box : {txtDeLa, txtPanaLa}) {
    connect(box, &QSpinBox::valueChanged, this, [this] { optInterval->setChecked(true); });
  }
  OnClick(cmdTiparire, "cmdTiparire_Click", [this](Procedure&) { cmdTiparire_Click(); });
  connect(cmdRenunta, &QPushButton::clicked, this, [this] { close(); });
}

void frmPrint::Build() {
  cboImprimanta = new QComboBox(this);
  cboImprimanta->setObjectName("cboImprimanta");
  cboImprimanta->setToolTip("Imprimanta la care se tipareste");
  cboImprimanta->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  QWidget* pages = BuildPages();
  txtExemplare = MakeSpinBox("txtExemplare", "De cate ori se tipareste", kMostCopies, this);
  auto* grid = new QGridLayout;
  grid->addWidget(LabelOf(cboImprimanta, "&Imprimanta:", this), 0, 0);
  grid->addWidget(cboImprimanta, 0, 1, 1, 2);
  grid->addWidget(pages, 1, 0, 1, 3);
  grid->addWidget(LabelOf(txtExemplare, "&Exemplare:", this), 2, 0);
  grid->addWidget(txtExemplare, 2, 1);
  grid->setColumnStretch(2, 1);
  grid->setVerticalSpacing(12);
  cmdTiparire = MakeButton("cmdTiparire", "&Tipareste", "Tiparire la imprimanta aleasa", this);
  cmdTiparire->setIcon(PictureIcon("\\BMP\\Tiparire.bmp"));
  cmdTiparire->setDefault(true);
  cmdRenunta = MakeButton("cmdRenunta", "&Renunta", "Nu se tipareste nimic", this);
  cmdRenunta->setIcon(PictureIcon("\\BMP\\Iesire.bmp"));
  SetCancelButton(cmdRenunta);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdTiparire);
  buttons->addWidget(cmdRenunta);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(14, 14, 14, 12);
  all->setSpacing(14);
  all->addLayout(grid);
  all->addStretch(1);
  all->addLayout(buttons);
  setMinimumWidth(420);
}

QWidget* frmPrint::BuildPages() {
  auto* frame = new QGroupBox("Pagini", this);
  optToate = new OptionButton("optToate", "T&oate", frame);
  optInterval = new OptionButton("optInterval", "&De la pagina", frame);
  txtDeLa = MakeSpinBox("txtDeLa", "Prima pagina tiparita", kMostPages, frame);
  txtPanaLa = MakeSpinBox("txtPanaLa", "Ultima pagina tiparita", kMostPages, frame);
  auto* grid = new QGridLayout(frame);
  grid->addWidget(optToate, 0, 0);
  grid->addWidget(optInterval, 1, 0);
  grid->addWidget(txtDeLa, 1, 1);
  grid->addWidget(LabelOf(txtPanaLa, "&pana la", frame), 1, 2);
  grid->addWidget(txtPanaLa, 1, 3);
  grid->setColumnStretch(4, 1);
  return frame;
}

// The number of pages is known only after the layout.
void frmPrint::cmdTiparire_Click() {
  PrintJob job{cboImprimanta->currentText(), txtExemplare->value(), 1, 0};
  if (optInterval->isChecked()) {
    {
      frmProgress progress(kCaption, PageWords(), this);
      if (!document_.LayOutAll(progress.Asked())) return;
    }
    job.from = txtDeLa->value();
    job.to = txtPanaLa->value();
    const int pages = document_.PageCount();
    if (job.from > job.to || job.from > pages) {
      const QString wrong = job.from > job.to
                                ? QString("Prima pagina trebuie sa fie inaintea ultimei !")
                                : QString("Documentul se termina la pagina %1 !").arg(pages);
      ShowMessage({wrong.toStdString(), kCritical, kCaption, {}});
      return GiveFocus(txtDeLa);
    }
  }
  chosen_ = job;
  close();
}

ProgressWords PageWords() {
  return {"Pagina %1 din %2", "Se pregatesc paginile: %1"};
}

void PrintAsked(PagedDocument& document, QWidget* parent) {
  if (CurrentPrinters().names().isEmpty()) {
    ShowMessage(
        {"Nu este instalata nici o imprimanta ! Documentul poate fi salvat ca PDF si tiparit "
         "de pe alt calculator.",
         kExclamation,
         kCaption,
         {}});
    return;
  }
  std::optional<PrintJob> job;
  {
    frmPrint screen(document, parent);
    screen.ShowModal();
    job = screen.Chosen();
  }
  if (!job) return;
  frmProgress progress(kCaption, PageWords(), parent);
  PrintDocument(document, *job, progress.Asked());
}

}  // namespace tevra
