#include "platform/print/FindBar.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <utility>

#include "platform/print/PreviewButtons.h"

namespace tevra {
namespace {

constexpr int kLongestText = 200;
constexpr char kNothing[] = "Nu s-a gasit nimic";

}  // namespace

FindBar::FindBar(PagedDocument& document, std::function<int()> pageOnShow, QWidget* parent)
    : QWidget(parent), search_(document), pageOnShow_(std::move(pageOnShow)) {
  setObjectName("FindBar");
  Build();
  connect(txtCauta, &QLineEdit::textChanged, this, [this] { Begin(); });
  connect(cmdCautaInainte, &QPushButton::clicked, this, [this] { Go(1); });
  connect(cmdCautaInapoi, &QPushButton::clicked, this, [this] { Go(-1); });
  connect(cmdInchideCautare, &QToolButton::clicked, this, [this] { Close(); });
  Tell();
  hide();
}

void FindBar::Build() {
  auto* label = new QLabel("&Cauta:", this);
  txtCauta = new QLineEdit(this);
  txtCauta->setObjectName("txtCauta");
  txtCauta->setToolTip("Textul cautat in toate paginile; literele mari si mici sunt la fel");
  txtCauta->setMaxLength(kLongestText);
  txtCauta->setMinimumWidth(140);
  txtCauta->setMaximumWidth(320);
  label->setBuddy(txtCauta);
  cmdCautaInapoi = MakeCommand("cmdCautaInapoi", "I&napoi", "\\BMP\\Inapoi.bmp",
                               "Locul gasit mai inainte (Shift+F3)", this);
  cmdCautaInainte = MakeCommand("cmdCautaInainte", "In&ainte", "\\BMP\\Inainte.bmp",
                                "Urmatorul loc gasit (F3)", this);
  lblGasite = new QLabel(this);
  lblGasite->setObjectName("lblGasite");
  cmdInchideCautare = MakeToolButton("cmdInchideCautare", "\\BMP\\Inchide.bmp", "x",
                                     "Inchiderea cautarii (Escape)", this);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 0, 8, 6);
  row->setSpacing(4);
  row->addWidget(label);
  row->addWidget(txtCauta, 1);
  row->addWidget(cmdCautaInapoi);
  row->addWidget(cmdCautaInainte);
  row->addSpacing(8);
  row->addWidget(lblGasite, 1);
  row->addWidget(cmdInchideCautare);
}

// ---- What the user does -------------------------------------------------------------------------

void FindBar::Open() {
  const bool closed = isHidden();
  show();
  txtCauta->setFocus();
  txtCauta->selectAll();
  if (closed) Begin();
}

void FindBar::Close() {
  if (isHidden()) return;
  hide();
  search_.Begin({}, 0);
  Tell();
  emit PlacesChanged();
  emit BarClosed();
}

void FindBar::Begin() {
  broken_ = false;
  current_.reset();
  search_.Begin(txtCauta->text(), pageOnShow_());
  Tell();
  emit PlacesChanged();
  if (IsSearching()) emit SearchWanted();
}

void FindBar::Go(int step) {
  if (isHidden() || search_.Text().isEmpty()) return Open();
  search_.Go(step);
  Tell();
  emit PlacesChanged();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return Close();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter || !txtCauta->hasFocus()) return QWidget::keyPressEvent(event);
  Go(event->modifiers() & Qt::ShiftModifier ? -1 : 1);
}

// ---- The search ---------------------------------------------------------------------------------

void FindBar::DocumentChanged() {
  if (isHidden()) return;
  broken_ = false;
  search_.BeginAnew();
  Tell();
  if (IsSearching()) emit SearchWanted();
}

bool FindBar::SearchMore(int milliseconds) {
  QElapsedTimer time;
  time.start();
  bool more = IsSearching();
  try {
    while (more && time.elapsed() < milliseconds) more = search_.SearchMore();
  } catch (...) {
    broken_ = true;
    Tell();
    throw;
  }
  Tell();
  return more;
}

// Finding the same place again does not scroll, because the user may be looking elsewhere by now.
void FindBar::Tell() {
  const FoundPlace* place = search_.CurrentPlace();
  if (place && (!current_ || *current_ != *place)) {
    current_ = *place;
    emit PlaceChosen(*place);
  }
  if (count_ != search_.Places().size()) emit PlacesChanged();
  count_ = search_.Places().size();
  const QString found = FoundText();
  lblGasite->setText(found);
  QPalette colours = palette();
  if (found == kNothing) colours.setColor(QPalette::WindowText, QColor(0xB0, 0x20, 0x20));
  lblGasite->setPalette(colours);
  cmdCautaInapoi->setEnabled(count_ > 0);
  cmdCautaInainte->setEnabled(count_ > 0);
}

QString FindBar::FoundText() const {
  if (search_.Text().isEmpty()) return {};
  if (broken_) return "Cautarea s-a oprit la o pagina care nu poate fi citita";
  if (count_ == 0) return search_.IsDone() ? kNothing : "Se cauta...";
  return QString(search_.IsFull() ? "%1 din primele %2%3" : "%1 din %2%3")
      .arg(search_.Current() + 1)
      .arg(count_)
      .arg(search_.IsDone() ? "" : "...");
}

}  // namespace tevra
