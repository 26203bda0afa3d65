// The preview's controls and their handlers.
#include <QHBoxLayout>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "platform/export/TableExport.h"
#include "platform/print/PreviewButtons.h"
#include "platform/print/frmPreview.h"

namespace tevra {

void frmPreview::Build() {
  View = new PageView("View", *document_, this);
  List = new PageList("List", *document_, this);
  List->hide();
  Find = new FindBar(
      *document_, [this] { return View->CurrentPage(); }, this);
  View->SetSearch(Find->Search());
  auto* pages = new QHBoxLayout;
  pages->setSpacing(0);
  pages->addWidget(List);
  pages->addWidget(View, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(bar_ = BuildBar());
  all->addWidget(Find);
  all->addLayout(pages, 1);
  constexpr QSize kWanted(1160, 760);
  const QScreen* shownOn = screen();
  resize(shownOn ? kWanted.boundedTo(shownOn->availableSize() * 0.95) : kWanted);
}

QWidget* frmPreview::BuildBar() {
  auto* bar = new QWidget(this);
  cmdListaPagini =
      MakeToolButton("cmdListaPagini", "\\BMP\\ListaPagini.bmp", "#", "Lista paginilor (F9)", bar);
  cmdListaPagini->setCheckable(true);
  cmdPrima = MakeToolButton("cmdPrima", "\\BMP\\Prima.bmp", "|<", "Prima pagina (Home)", bar);
  cmdInapoi = MakeToolButton("cmdInapoi", "\\BMP\\Inapoi.bmp", "<",
                             "Pagina anterioara (Ctrl+Page Up)", bar);
  txtPagina = new QLineEdit(bar);
  txtPagina->setObjectName("txtPagina");
  txtPagina->setToolTip("Pagina afisata; scrieti alta si apasati Enter");
  txtPagina->setAlignment(Qt::AlignRight);
  txtPagina->setValidator(
      new QRegularExpressionValidator(QRegularExpression("[0-9]{0,6}"), txtPagina));
  txtPagina->setFixedWidth(txtPagina->fontMetrics().horizontalAdvance("00000") + 20);
  lblPagini = new QLabel(bar);
  lblPagini->setObjectName("lblPagini");
  // As wide as its longest text, so that its neighbours do not move.
  lblPagini->setMinimumWidth(lblPagini->fontMetrics().horizontalAdvance("din 0000..."));
  cmdInainte = MakeToolButton("cmdInainte", "\\BMP\\Inainte.bmp", ">",
                              "Pagina urmatoare (Ctrl+Page Down)", bar);
  cmdUltima = MakeToolButton("cmdUltima", "\\BMP\\Ultima.bmp", ">|", "Ultima pagina (End)", bar);
  BuildZoom(bar);
  cmdCauta =
      MakeToolButton("cmdCauta", "\\BMP\\Cautare.bmp", "?", "Cautare in document (Ctrl+F)", bar);
  cmdTiparire = MakeCommand("cmdTiparire", "&Tipareste", "\\BMP\\Tiparire.bmp",
                            "Tiparire la imprimanta (Ctrl+P)", bar);
  cmdSalvarePDF = MakeCommand("cmdSalvarePDF", "&Salveaza PDF", "\\BMP\\SalvarePDF.bmp",
                              "Salvare ca fisier PDF (Ctrl+S)", bar);
  cmdPagina = MakeCommand("cmdPagina", "&Pagina...", "\\BMP\\Pagina.bmp",
                          "Hartia, orientarea si marginile paginii", bar);
  cmdFoaieCalcul = MakeCommand("cmdFoaieCalcul", "&Foaie de calcul", "\\BMP\\FoaieCalcul.bmp",
                               "Salvarea randurilor ca foaie de calcul", bar);
  cmdCSV = MakeCommand("cmdCSV", "CS&V", "\\BMP\\CSV.bmp",
                       "Salvarea randurilor ca fisier CSV, pentru alte programe", bar);
  cmdFoaieCalcul->setVisible(document_->HasRows());
  cmdCSV->setVisible(document_->HasRows());
  cmdIesire =
      MakeCommand("cmdIesire", "&Iesire", "\\BMP\\Iesire.bmp", "Inchidere fereastra (Escape)", bar);
  SetCancelButton(cmdIesire);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(8, 6, 8, 6);
  row->setSpacing(4);
  for (QWidget* widget : std::initializer_list<QWidget*>{
           cmdListaPagini, cmdPrima, cmdInapoi, txtPagina, lblPagini, cmdInainte, cmdUltima,
           MakeSeparator(bar), cmdMicsorare, cboZoom, cmdMarire, MakeSeparator(bar), cmdCauta,
           cmdTiparire, cmdSalvarePDF, cmdFoaieCalcul, cmdCSV, cmdPagina}) {
    row->addWidget(widget);
  }
  row->addStretch(1);
  row->addWidget(cmdIesire);
  for (QPushButton* button :
       {cmdFoaieCalcul, cmdPagina, cmdCSV, cmdIesire, cmdSalvarePDF, cmdTiparire}) {
    captions_.emplace_back(button, button->text());
  }
  return bar;
}

// In a narrow window the captions are hidden; their shortcuts still work.
void frmPreview::FitCaptions() {
  for (const auto& [button, caption] : captions_) button->setText(caption);
  for (const auto& [button, caption] : captions_) {
    if (bar_->sizeHint().width() <= width()) return;
    if (button->icon().isNull()) continue;
    button->setText({});
    button->setShortcut(QKeySequence::mnemonic(caption));
  }
}

void frmPreview::resizeEvent(QResizeEvent* event) {
  Form::resizeEvent(event);
  FitCaptions();
}

void frmPreview::Wire() {
  OnClick(cmdPrima, "cmdPrima_Click", [this](Procedure&) { View->GoToPage(0); });
  OnClick(cmdInapoi, "cmdInapoi_Click",
          [this](Procedure&) { View->GoToPage(View->CurrentPage() - 1); });
  OnClick(cmdInainte, "cmdInainte_Click",
          [this](Procedure&) { View->GoToPage(View->CurrentPage() + 1); });
  OnClick(cmdUltima, "cmdUltima_Click",
          [this](Procedure&) { View->GoToPage(document_->PageCount() - 1); });
  OnClick(cmdMicsorare, "cmdMicsorare_Click", [this](Procedure&) { Zoom(-1); });
  OnClick(cmdMarire, "cmdMarire_Click", [this](Procedure&) { Zoom(1); });
  OnClick(cmdTiparire, "cmdTiparire_Click", [this](Procedure&) { cmdTiparire_Click(); });
  OnClick(cmdSalvarePDF, "cmdSalvarePDF_Click", [this](Procedure&) { cmdSalvarePDF_Click(); });
  OnClick(cmdFoaieCalcul, "cmdFoaieCalcul_Click",
          [this](Procedure&) { SaveRows("Foaie de calcul", "xlsx", SaveSpreadsheet); });
  OnClick(cmdCSV, "cmdCSV_Click", [this](Procedure&) { SaveRows("Fisier CSV", "csv", SaveCsv); });
  OnClick(cmdPagina, "cmdPagina_Click", [this](Procedure&) { cmdPagina_Click(); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  connect(txtPagina, &QLineEdit::returnPressed, this, [this] { GoToTyped(); });
  connect(txtPagina, &QLineEdit::editingFinished, this, [this] { ShowCounts(); });
  connect(cboZoom, &QComboBox::activated, this, [this](int index) { ZoomChosen(index); });
  WirePages();
  WireKeys();
}

void frmPreview::WirePages() {
  connect(View, &PageView::CurrentPageChanged, this, [this] { ShowCounts(); });
  connect(View, &PageView::ZoomWanted, this, [this](int step) { Zoom(step); });
  connect(View, &PageView::PaintingFailed, this, [this](const QString& reason) {
    Run("View_Paint", [&](Procedure&) { throw Failure(kInternalError, reason.toStdString()); });
  });
  connect(List, &PageList::PageChosen, View, &PageView::GoToPage);
  connect(cmdListaPagini, &QToolButton::toggled, this, [this](bool shown) { ShowList(shown); });
  connect(cmdCauta, &QToolButton::clicked, Find, &FindBar::Open);
  connect(Find, &FindBar::SearchWanted, this, [this] { searching_->start(0); });
  connect(Find, &FindBar::PlacesChanged, View->viewport(), qOverload<>(&QWidget::update));
  connect(Find, &FindBar::PlaceChosen, View, &PageView::ShowPlace);
  connect(Find, &FindBar::BarClosed, this, [this] { View->setFocus(); });
}

void frmPreview::WireKeys() {
  const auto shortcut = [this](const QKeySequence& keys, QAbstractButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button,
            [button] { button->click(); });
  };
  shortcut(Qt::CTRL | Qt::Key_P, cmdTiparire);
  shortcut(Qt::CTRL | Qt::Key_S, cmdSalvarePDF);
  shortcut(Qt::Key_F9, cmdListaPagini);
  shortcut(Qt::CTRL | Qt::Key_F, cmdCauta);
  const auto go = [this](const QKeySequence& keys, int step) {
    connect(new QShortcut(keys, this), &QShortcut::activated, Find,
            [this, step] { Find->Go(step); });
  };
  go(Qt::Key_F3, 1);
  go(Qt::SHIFT | Qt::Key_F3, -1);
}

}  // namespace tevra
