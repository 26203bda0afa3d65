#include "platform/forms/Form.h"

#include <QKeyEvent>

namespace tevra {

Form::Form(const char* name, const QString& caption, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setWindowTitle(caption);
}

void Form::Run(const char* procedure, const Body& body) {
  Procedure running{procedure, "Form", objectName().toStdString()};
  try {
    body(running);
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(), running);
  }
}

// A button that has the focus is the one that Enter means.
QPushButton* Form::ButtonOfEnter() const {
  if (auto* focused = qobject_cast<QPushButton*>(focusWidget())) return focused;
  for (QPushButton* button : findChildren<QPushButton*>()) {
    if (button->isDefault()) return button;
  }
  return nullptr;
}

void Form::keyPressEvent(QKeyEvent* event) {
  QPushButton* pressed = nullptr;
  if (event->key() == Qt::Key_Escape) pressed = cancel_;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) pressed = ButtonOfEnter();
  if (!pressed || !pressed->isEnabled()) return QWidget::keyPressEvent(event);
  pressed->click();
}

}  // namespace tevra
