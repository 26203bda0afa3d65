#include "platform/print/frmPreview.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "platform/forms/Buttons.h"
#include "platform/forms/Pictures.h"
#include "platform/print/Pdf.h"
#include "platform/print/frmPageSetup.h"
#include "platform/print/frmPrint.h"
#include "platform/print/frmProgress.h"
#include "platform/system/Desktop.h"

namespace tevra {
namespace {

constexpr std::array kZooms = {0.5, 0.75, 1.0, 1.25, 1.5, 2.0};
constexpr int kWidthItem = static_cast<int>(kZooms.size());
constexpr int kPageItem = kWidthItem + 1;
constexpr int kIdleStep = 12;  // ms of layout between two looks at what the user does

QToolButton* MakeToolButton(const char* name, const char* picture, const char* text,
                            const char* tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  const QIcon icon = PictureIcon(picture);
  icon.isNull() ? button->setText(text) : button->setIcon(icon);
  button->setMinimumSize(28, 28);
  return button;
}

QPushButton* MakeCommand(const char* name, const char* caption, const char* picture,
                         const char* tip, QWidget* parent) {
  QPushButton* button = MakeButton(name, caption, tip, parent);
  button->setIcon(PictureIcon(picture));
  button->setMinimumWidth(0);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

QFrame* MakeSeparator(QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameShape(QFrame::VLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

// A title as a name that every file system takes.
std::string FileNameOf(const QString& title) {
  QString name = title.simplified();
  for (QChar& character : name) {
    if (QString("/\\:*?\"<>|").contains(character)) character = '_';
  }
  constexpr int kLongest = 80;
  return (name.isEmpty() ? QString("Raport") : name.left(kLongest).trimmed()).toStdString() +
         ".pdf";
}

}  // namespace

frmPreview::frmPreview(std::unique_ptr<PagedDocument> document, QWidget* parent)
    : Form("frmPreview", document->Title(), parent), document_(std::move(document)) {
  setWindowFlags(Qt::Window);
  if (document_->PageCount() == 0) document_->LayOutMore();
  Build();
  Wire();
  idle_ = new QTimer(this);
  connect(idle_, &QTimer::timeout, this, [this] { LayOutWhenIdle(); });
  if (!document_->IsComplete()) idle_->start(0);
  View->SetFit(PageView::Fit::kWidth);
  ShowZoom();
  ShowCounts();
  View->setFocus();
}

frmPreview::~frmPreview() {
  // The pages are gone before the document is.
  delete View;
}

// ---- The screen ---------------------------------------------------------------------------------

void frmPreview::Build() {
  View = new PageView("View", *document_, this);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(BuildBar());
  all->addWidget(View, 1);
  constexpr QSize kWanted(1060, 760);
  const QScreen* shownOn = screen();
  resize(shownOn ? kWanted.boundedTo(shownOn->availableSize() * 0.95) : kWanted);
}

QWidget* frmPreview::BuildBar() {
  auto* bar = new QWidget(this);
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
  // As wide as it may become: what stands beside it keeps its place.
  lblPagini->setMinimumWidth(lblPagini->fontMetrics().horizontalAdvance("din 0000..."));
  cmdInainte = MakeToolButton("cmdInainte", "\\BMP\\Inainte.bmp", ">",
                              "Pagina urmatoare (Ctrl+Page Down)", bar);
  cmdUltima = MakeToolButton("cmdUltima", "\\BMP\\Ultima.bmp", ">|", "Ultima pagina (End)", bar);
  BuildZoom(bar);
  cmdTiparire = MakeCommand("cmdTiparire", "&Tipareste", "\\BMP\\Tiparire.bmp",
                            "Tiparire la imprimanta (Ctrl+P)", bar);
  cmdSalvarePDF = MakeCommand("cmdSalvarePDF", "&Salveaza PDF", "\\BMP\\SalvarePDF.bmp",
                              "Salvare ca fisier PDF (Ctrl+S)", bar);
  cmdPagina = MakeCommand("cmdPagina", "&Pagina...", "\\BMP\\Pagina.bmp",
                          "Hartia, orientarea si marginile paginii", bar);
  cmdIesire =
      MakeCommand("cmdIesire", "&Iesire", "\\BMP\\Iesire.bmp", "Inchidere fereastra (Escape)", bar);
  SetCancelButton(cmdIesire);
  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(8, 6, 8, 6);
  row->setSpacing(4);
  for (QWidget* widget : std::initializer_list<QWidget*>{
           cmdPrima, cmdInapoi, txtPagina, lblPagini, cmdInainte, cmdUltima, MakeSeparator(bar),
           cmdMicsorare, cboZoom, cmdMarire, MakeSeparator(bar), cmdTiparire, cmdSalvarePDF,
           cmdPagina}) {
    row->addWidget(widget);
  }
  row->addStretch(1);
  row->addWidget(cmdIesire);
  return bar;
}

void frmPreview::BuildZoom(QWidget* bar) {
  cmdMicsorare = MakeToolButton("cmdMicsorare", "\\BMP\\Micsorare.bmp", "-", "Micsorare (-)", bar);
  cmdMarire = MakeToolButton("cmdMarire", "\\BMP\\Marire.bmp", "+", "Marire (+)", bar);
  cboZoom = new QComboBox(bar);
  cboZoom->setObjectName("cboZoom");
  cboZoom->setToolTip("Marimea paginii pe ecran (Ctrl si rotita)");
  for (const double zoom : kZooms) cboZoom->addItem(QString("%1 %").arg(zoom * 100));
  cboZoom->addItem("Latimea paginii");
  cboZoom->addItem("Pagina intreaga");
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
  OnClick(cmdPagina, "cmdPagina_Click", [this](Procedure&) { cmdPagina_Click(); });
  connect(cmdIesire, &QPushButton::clicked, this, [this] { close(); });
  connect(txtPagina, &QLineEdit::returnPressed, this, [this] { GoToTyped(); });
  connect(txtPagina, &QLineEdit::editingFinished, this, [this] { ShowCounts(); });
  connect(cboZoom, &QComboBox::activated, this, [this](int index) { ZoomChosen(index); });
  connect(View, &PageView::CurrentPageChanged, this, [this] { ShowCounts(); });
  connect(View, &PageView::ZoomWanted, this, [this](int step) { Zoom(step); });
  connect(View, &PageView::PaintingFailed, this, [this](const QString& reason) {
    Run("View_Paint", [&](Procedure&) { throw Failure(kInternalError, reason.toStdString()); });
  });
  const auto shortcut = [this](const QKeySequence& keys, QPushButton* button) {
    connect(new QShortcut(keys, this), &QShortcut::activated, button,
            [button] { button->click(); });
  };
  shortcut(Qt::CTRL | Qt::Key_P, cmdTiparire);
  shortcut(Qt::CTRL | Qt::Key_S, cmdSalvarePDF);
}

// ---- Pages --------------------------------------------------------------------------------------

// A failure ends the layout at the pages that are there; printing and saving try again and tell.
void frmPreview::LayOutWhenIdle() {
  const bool went = Run("Form_LayOut", [this](Procedure&) {
    QElapsedTimer time;
    time.start();
    while (!document_->IsComplete() && time.elapsed() < kIdleStep) document_->LayOutMore();
  });
  if (!went || document_->IsComplete()) idle_->stop();
  ShowCounts();
}

void frmPreview::ShowCounts() {
  const int pages = document_->PageCount();
  if (complete_ != document_->IsComplete()) {
    complete_ = document_->IsComplete();
    View->PagesChanged();  // the number of pages is known now, or no longer
  } else {
    View->PagesAdded();
  }
  const int page = View->CurrentPage();
  if (!txtPagina->isModified() || !txtPagina->hasFocus()) {
    txtPagina->setText(QString::number(page + 1));
  }
  lblPagini->setText(QString("din %1%2").arg(pages).arg(complete_ ? "" : "..."));
  cmdPrima->setEnabled(page > 0);
  cmdInapoi->setEnabled(page > 0);
  cmdInainte->setEnabled(page + 1 < pages);
  cmdUltima->setEnabled(page + 1 < pages);
}

// A page behind the last is the last.
void frmPreview::GoToTyped() {
  const int page = txtPagina->text().toInt();
  txtPagina->setModified(false);
  if (page > 0) View->GoToPage(page - 1);
  ShowCounts();
  txtPagina->selectAll();
}

// ---- Zoom ---------------------------------------------------------------------------------------

void frmPreview::Zoom(int step) {
  const double zoom = View->Zoom();
  constexpr double kSame = 0.005;
  if (step > 0) {
    const auto next = std::find_if(kZooms.begin(), kZooms.end(),
                                   [&](double each) { return each > zoom + kSame; });
    if (next != kZooms.end()) View->SetZoom(*next);
  } else {
    const auto next = std::find_if(kZooms.rbegin(), kZooms.rend(),
                                   [&](double each) { return each < zoom - kSame; });
    if (next != kZooms.rend()) View->SetZoom(*next);
  }
  ShowZoom();
}

void frmPreview::ZoomChosen(int index) {
  if (index == kWidthItem) View->SetFit(PageView::Fit::kWidth);
  if (index == kPageItem) View->SetFit(PageView::Fit::kPage);
  if (index < kWidthItem) View->SetZoom(kZooms[static_cast<std::size_t>(index)]);
  ShowZoom();
  View->setFocus();
}

void frmPreview::ShowZoom() {
  if (View->GetFit() == PageView::Fit::kWidth) return cboZoom->setCurrentIndex(kWidthItem);
  if (View->GetFit() == PageView::Fit::kPage) return cboZoom->setCurrentIndex(kPageItem);
  const auto known = std::find(kZooms.begin(), kZooms.end(), View->Zoom());
  cboZoom->setCurrentIndex(static_cast<int>(known - kZooms.begin()));
}

// ---- Commands -----------------------------------------------------------------------------------

// Lays out no more behind work that lays out itself; what that came to is on show behind it.
class frmPreview::Busy {
 public:
  explicit Busy(frmPreview& preview) : preview_(preview) { preview_.idle_->stop(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() {
    if (!preview_.document_->IsComplete()) preview_.idle_->start(0);
    preview_.ShowCounts();
  }

 private:
  frmPreview& preview_;
};

void frmPreview::cmdTiparire_Click() {
  const Busy busy(*this);
  PrintAsked(*document_, this);
}

void frmPreview::cmdSalvarePDF_Click() {
  const std::optional<std::string> path =
      AskSaveFile({"Salvare ca PDF", "Fisiere PDF|*.pdf", FileNameOf(document_->Title()), "pdf"});
  if (!path) return;
  const Busy busy(*this);
  frmProgress progress("Salvare ca PDF", this);
  SavePdf(*document_, *path, progress.Asked());
}

void frmPreview::cmdPagina_Click() {
  QPageLayout layout = document_->PageLayout();
  if (!AskPageSetup(layout)) return;
  const Busy busy(*this);
  document_->SetPageLayout(layout);
  document_->LayOutMore();
  View->PagesChanged();
}

void frmPreview::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers() & Qt::ControlModifier;
  switch (event->key()) {
    case Qt::Key_Home:
      return View->GoToPage(0);
    case Qt::Key_End:
      return View->GoToPage(document_->PageCount() - 1);
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
      const bool down = event->key() == Qt::Key_PageDown;
      if (control) return View->GoToPage(View->CurrentPage() + (down ? 1 : -1));
      // From another control; the pages hear the key themselves.
      return View->verticalScrollBar()->triggerAction(down ? QAbstractSlider::SliderPageStepAdd
                                                           : QAbstractSlider::SliderPageStepSub);
    }
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoom(1);
    case Qt::Key_Minus:
      return Zoom(-1);
    default:
      break;
  }
  Form::keyPressEvent(event);
}

void ShowPreview(std::unique_ptr<PagedDocument> document) {
  QWidget* modal = QApplication::activeModalWidget();
  auto* preview = new frmPreview(std::move(document), modal);
  preview->setAttribute(Qt::WA_DeleteOnClose);
  if (modal) {
    preview->setWindowModality(Qt::ApplicationModal);
  } else {
    // The program ends with its frame, not with the last paper on show.
    preview->setAttribute(Qt::WA_QuitOnClose, false);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, preview, [preview] { delete preview; });
  }
  preview->show();
  preview->raise();
  preview->activateWindow();
}

}  // namespace tevra
