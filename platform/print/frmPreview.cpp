#include "platform/print/frmPreview.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <array>

#include "platform/forms/frmProgress.h"
#include "platform/print/Pdf.h"
#include "platform/print/PreviewButtons.h"
#include "platform/print/frmPageSetup.h"
#include "platform/print/frmPrint.h"
#include "platform/system/Desktop.h"

namespace tevra {
namespace {

constexpr std::array kZooms = {0.5, 0.75, 1.0, 1.25, 1.5, 2.0};
constexpr int kWidthItem = static_cast<int>(kZooms.size());
constexpr int kPageItem = kWidthItem + 1;
constexpr int kIdleStep = 12;  // ms of layout or search before the program handles events again

// Turns a title into a name that every file system accepts.
std::string FileNameOf(const QString& title, const char* extension) {
  QString name = title.simplified();
  for (QChar& character : name) {
    if (QString("/\\:*?\"<>|").contains(character)) character = '_';
  }
  constexpr int kLongest = 80;
  return (name.isEmpty() ? QString("Raport") : name.left(kLongest).trimmed()).toStdString() + "." +
         extension;
}

}  // namespace

frmPreview::frmPreview(std::unique_ptr<PagedDocument> document, QWidget* parent)
    : Form("frmPreview", document->Title(), parent), document_(std::move(document)) {
  setWindowFlags(Qt::Window);
  if (document_->PageCount() == 0) document_->LayOutMore();
  Build();
  Wire();
  idle_ = new QTimer(this);
  searching_ = new QTimer(this);
  connect(searching_, &QTimer::timeout, this, [this] { SearchWhenIdle(); });
  connect(idle_, &QTimer::timeout, this, [this] { LayOutWhenIdle(); });
  if (!document_->IsComplete()) idle_->start(0);
  View->SetFit(PageView::Fit::kWidth);
  ShowZoom();
  ShowCounts();
  View->setFocus();
}

frmPreview::~frmPreview() {
  // The pages must be deleted before the document.
  delete View;
  delete List;
  delete Find;
}

// ---- Pages --------------------------------------------------------------------------------------

// A failure ends the layout with the pages so far; printing and saving try again and report it.
void frmPreview::LayOutWhenIdle() {
  const bool went = Run("Form_LayOut", [this](Procedure&) {
    QElapsedTimer time;
    time.start();
    while (!document_->IsComplete() && time.elapsed() < kIdleStep) document_->LayOutMore();
  });
  if (!went || document_->IsComplete()) idle_->stop();
  ShowCounts();
}

// A page that cannot be read is reported once and ends the search.
void frmPreview::SearchWhenIdle() {
  bool more = false;
  Run("Form_Search", [&](Procedure&) { more = Find->SearchMore(kIdleStep); });
  if (!more) searching_->stop();
}

void frmPreview::ShowList(bool shown) {
  if (!shown && List->hasFocus()) View->setFocus();
  List->setVisible(shown);
}

void frmPreview::PagesChanged() {
  View->PagesChanged();
  List->PagesChanged();
  Find->DocumentChanged();
}

void frmPreview::ShowCounts() {
  const int pages = document_->PageCount();
  if (complete_ != document_->IsComplete()) {
    complete_ = document_->IsComplete();
    PagesChanged();  // the number of pages has become known or unknown
  } else {
    View->PagesAdded();
    List->PagesAdded();
  }
  if (Find->IsSearching() && !searching_->isActive()) searching_->start(0);
  const int page = View->CurrentPage();
  List->SetCurrent(page);
  if (!txtPagina->isModified() || !txtPagina->hasFocus()) {
    txtPagina->setText(QString::number(page + 1));
  }
  lblPagini->setText(QString("din %1%2").arg(pages).arg(complete_ ? "" : "..."));
  cmdPrima->setEnabled(page > 0);
  cmdInapoi->setEnabled(page > 0);
  cmdInainte->setEnabled(page + 1 < pages);
  cmdUltima->setEnabled(page + 1 < pages);
}

// A number above the last page goes to the last page.
void frmPreview::GoToTyped() {
  const int page = txtPagina->text().toInt();
  txtPagina->setModified(false);
  if (page > 0) View->GoToPage(page - 1);
  ShowCounts();
  txtPagina->selectAll();
}

// ---- Zoom ---------------------------------------------------------------------------------------

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

// Stops idle layout and search during work that does its own layout, and shows the result
// afterwards.
class frmPreview::Busy {
 public:
  explicit Busy(frmPreview& preview) : preview_(preview) {
    preview_.idle_->stop();
    preview_.searching_->stop();
  }
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
  const std::optional<std::string> path = AskSaveFile(
      {"Salvare ca PDF", "Fisiere PDF|*.pdf", FileNameOf(document_->Title(), "pdf"), "pdf"});
  if (!path) return;
  const Busy busy(*this);
  frmProgress progress("Salvare ca PDF", PageWords(), this);
  SavePdf(*document_, *path, progress.Asked());
}

void frmPreview::SaveRows(const char* what, const char* extension, const Save& save) {
  const std::optional<std::string> path =
      AskSaveFile({what, std::string(what) + "|*." + extension,
                   FileNameOf(document_->Title(), extension), extension});
  if (!path) return;
  const Busy busy(*this);
  const std::unique_ptr<DocumentRows> rows = document_->Rows();
  if (!rows) return;
  frmProgress progress(what, {}, this);
  save(TableOf(*rows, document_->Title()), *path, progress.Asked());
}

void frmPreview::cmdPagina_Click() {
  QPageLayout layout = document_->PageLayout();
  if (!AskPageSetup(layout, document_->PaperKind())) return;
  const Busy busy(*this);
  document_->SetPageLayout(layout);
  document_->LayOutMore();
  PagesChanged();
}

void frmPreview::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers() & Qt::ControlModifier;
  switch (event->key()) {
    case Qt::Key_Escape:
      if (Find->isHidden()) break;
      return Find->Close();
    case Qt::Key_Home:
      return View->GoToPage(0);
    case Qt::Key_End:
      return View->GoToPage(document_->PageCount() - 1);
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
      const bool down = event->key() == Qt::Key_PageDown;
      if (control) return View->GoToPage(View->CurrentPage() + (down ? 1 : -1));
      // The key came from another control; the page view handles its own keys.
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
    // The program ends with its frame, so an open preview must not keep it running.
    preview->setAttribute(Qt::WA_QuitOnClose, false);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, preview, [preview] { delete preview; });
  }
  preview->show();
  preview->raise();
  preview->activateWindow();
}

}  // namespace tevra
