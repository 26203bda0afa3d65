// How far long work is, and a button to give it up.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

#include "platform/forms/Form.h"
#include "platform/system/Progress.h"

namespace tevra {

/// The words for how far the work is.
struct ProgressWords {
  QString counted = "Randul %1 din %2";  ///< %1 is done of %2
  QString uncounted = "Randul %1";       ///< nobody knows of how many
};

/// Comes on show only when the work takes longer than a moment; no other window can be used until
/// it is done.
class frmProgress : public Form {
  Q_OBJECT

 public:
  frmProgress(const QString& caption, const ProgressWords& words, QWidget* parent);

  /// What the work is to tell; lives no longer than the window.
  Progress Asked();

  QLabel* lblStare;
  QProgressBar* Bar;
  QPushButton* cmdRenunta;

 protected:
  bool QueryUnload() override;

 private:
  bool Tell(int done, int of);

  ProgressWords words_;
  QElapsedTimer since_;
  QElapsedTimer told_;
  bool givenUp_ = false;
};

}  // namespace tevra
