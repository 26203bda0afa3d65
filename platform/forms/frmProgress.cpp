#include "platform/forms/frmProgress.h"

#include <QApplication>
#include <QVBoxLayout>

#include "platform/forms/Buttons.h"
#include "platform/forms/FormsApplication.h"

namespace tevra {
namespace {

constexpr int kMoment = 500;  // ms of work before the window is shown
constexpr int kBetween = 60;  // ms between two checks of the user's input

}  // namespace

frmProgress::frmProgress(const QString& caption, const ProgressWords& words, QWidget* parent)
    : Form("frmProgress", caption, parent), words_(words) {
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
  setWindowModality(Qt::ApplicationModal);
  lblStare = new QLabel(this);
  lblStare->setObjectName("lblStare");
  Bar = new QProgressBar(this);
  Bar->setObjectName("Bar");
  Bar->setTextVisible(false);
  cmdRenunta = MakeButton("cmdRenunta", "&Renunta", "Oprirea lucrarii", this);
  SetCancelButton(cmdRenunta);
  connect(cmdRenunta, &QPushButton::clicked, this, [this] { givenUp_ = true; });
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(16, 16, 16, 12);
  all->setSpacing(10);
  all->addWidget(lblStare);
  all->addWidget(Bar);
  all->addWidget(cmdRenunta, 0, Qt::AlignRight);
  setMinimumWidth(340);
  since_.start();
  told_.start();
}

Progress frmProgress::Asked() {
  return [this](int done, int of) { return Tell(done, of); };
}

bool frmProgress::Tell(int done, int of) {
  if (told_.elapsed() < kBetween) return true;
  told_.restart();
  if (since_.elapsed() < kMoment) return true;
  lblStare->setText(of > 0 ? words_.counted.arg(done).arg(of) : words_.uncounted.arg(done));
  Bar->setRange(0, of);
  Bar->setValue(done);
  if (!isVisible()) show();
  const EventsLetThrough through;
  QApplication::processEvents();
  return !givenUp_;
}

// Closing it cancels the work, which then closes it.
bool frmProgress::QueryUnload() {
  givenUp_ = true;
  return true;
}

}  // namespace tevra
