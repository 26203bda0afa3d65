// What every screen is made of: a window whose events run procedures with one way of telling
// failures.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <functional>

#include "platform/system/StandardError.h"

namespace tevra {

/// A screen. Its objectName is the name that messages and tests know it by.
class Form : public QWidget {
 public:
  /// `name`: the screen's name; `caption`: its title.
  Form(const char* name, const QString& caption, QWidget* parent = nullptr);

 protected:
  /// What a procedure does; it counts its statements into `procedure.line` for the error message.
  using Body = std::function<void(Procedure& procedure)>;

  /// Runs a procedure of this screen. A failure is shown in the standard form and ends the
  /// procedure only: the caller's next step still runs.
  void Run(const char* procedure, const Body& body);

  /// Enter presses the button that has the focus, else the default one, and Escape the one set
  /// here, where no control wants the key for itself.
  void SetCancelButton(QPushButton* button) { cancel_ = button; }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* ButtonOfEnter() const;

  QPushButton* cancel_ = nullptr;
};

}  // namespace tevra
