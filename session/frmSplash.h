// The picture shown while the program starts.
#pragma once

#include <QPixmap>
#include <QWidget>

namespace tevra {

class frmSplash : public QWidget {
 public:
  frmSplash();

  /// Shows and paints it before the program continues.
  void ShowAtOnce();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QIcon picture_;
};

}  // namespace tevra
