#include "platform/forms/Form.h"

#include <QGuiApplication>
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
  } catch (const Failure& failure) {
    ShowStandardError(failure, running);
  }
}

void Form::keyPressEvent(QKeyEvent* event) {
  QPushButton* pressed = nullptr;
  if (event->key() == Qt::Key_Escape) pressed = cancel_;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    for (QPushButton* button : findChildren<QPushButton*>()) {
      if (button->isDefault()) pressed = button;
    }
  }
  if (!pressed || !pressed->isEnabled()) return QWidget::keyPressEvent(event);
  pressed->click();
}

Hourglass::Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
Hourglass::~Hourglass() { QGuiApplication::restoreOverrideCursor(); }

}  // namespace tevra
