// The progress of long work, and a button to cancel it.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

#include "platform/forms/Form.h"
#include "platform/system/Progress.h"

namespace tevra {

/// The texts for the progress.
struct ProgressWords {
  QString counted = "Randul %1 din %2";  ///< %1 is done of %2
  QString uncounted = "Randul %1";       ///< the total is unknown
};

/// Is shown only when the work takes longer than a moment; no other window can be used until it is
/// done.
class frmProgress : public Form {
  Q_OBJECT

 public:
  frmProgress(const QString& caption, const ProgressWords& words, QWidget* parent);

  /// The function to which the work reports; valid as long as the window.
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
