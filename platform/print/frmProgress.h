// How far long work is, and a button to give it up.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

#include "platform/forms/Form.h"
#include "platform/print/PagedDocument.h"

namespace tevra {

/// Comes on show only when the work takes longer than a moment; no other window can be used until
/// it is done.
class frmProgress : public Form {
  Q_OBJECT

 public:
  frmProgress(const QString& caption, QWidget* parent);

  /// What the work is to tell; lives no longer than the window.
  PrintProgress Asked();

  QLabel* lblStare;
  QProgressBar* Bar;
  QPushButton* cmdRenunta;

 protected:
  bool QueryUnload() override;

 private:
  bool Tell(int done, int of);

  QElapsedTimer since_;
  QElapsedTimer told_;
  bool givenUp_ = false;
};

}  // namespace tevra
