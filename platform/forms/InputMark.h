// The sign at a box that something typed into it was not taken.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

class QLineEdit;
class QWidget;

namespace tevra {

/// Tints the box and says why in a tip, which comes on show at once and again under the mouse. The
/// sign goes when the box is typed into or gets another value from its owner (Clear).
class InputMark : public QObject {
 public:
  /// `box`: the control; `line`: where its text stands, the same or a part of it.
  InputMark(QWidget* box, QLineEdit* line);

  void Show(const QString& why);
  void Clear();
  /// Why something was not taken; empty while there is no sign.
  const QString& Why() const { return why_; }

 private:
  QWidget* box_;
  QPointer<QLineEdit> line_;
  QString why_;
  QString tipBefore_;
};

}  // namespace tevra
