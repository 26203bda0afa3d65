#include "platform/forms/Form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QTabWidget>

#include "platform/forms/FormsApplication.h"
#include "platform/system/MessageBox.h"

namespace tevra {

namespace {

QPointer<Form> leavingForm;  // of the box that lost the focus last
int loopsRun = 0;            // by modal screens, since the start
}  // namespace

Form::Form(const char* name, const QString& caption, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setWindowTitle(caption);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { FollowFocus(now); });
  connect(&changes_, &ChangeWatch::Changed, this, &Form::Edited);
}

// The focus leaves once more while the widget is destroyed.
Form::~Form() {
  disconnect(qApp, nullptr, this, nullptr);
}

bool Form::RunWith(const char* procedure, const Body& body, const OnFailure& onFailure) {
  Procedure running{procedure, "Form", objectName().toStdString()};
  try {
    body(running);
    return true;
  } catch (const std::exception&) {
    onFailure(CaughtFailure(running), running);
    return false;
  }
}

bool Form::Run(const char* procedure, const Body& body) {
  return RunWith(procedure, body, ShowStandardError);
}

bool Form::RunShort(const char* procedure, const Body& body) {
  return RunWith(procedure, body, ShowShortError);
}

// ---- Leaving boxes ------------------------------------------------------------------------------

void Form::OnClick(QAbstractButton* button, const char* procedure, Body body) {
  connect(button, &QAbstractButton::clicked, this, [this, procedure, body = std::move(body)] {
    AfterEvent(this, [this, procedure, body] {
      if (LeaveBox()) Run(procedure, body);
    });
  });
}

void Form::OnClickShort(QAbstractButton* button, const char* procedure, Body body) {
  connect(button, &QAbstractButton::clicked, this, [this, procedure, body = std::move(body)] {
    AfterEvent(this, [this, procedure, body] {
      if (LeaveBox()) RunShort(procedure, body);
    });
  });
}

void Form::OnLeave(QWidget* box, const char* procedure, LeaveBody body) {
  box->installEventFilter(this);
  leaveHandlers_[box] = [this, procedure, body = std::move(body)] {
    bool letsGo = false;
    Run(procedure, [&](Procedure& running) { letsGo = body(running); });
    return letsGo;
  };
}

bool Form::LeaveBox() {
  if (leaving_) return true;
  if (!left_) SettleFocused();
  QWidget* box = left_ ? left_.data() : FocusedBox();
  left_.clear();
  const auto handler = leaveHandlers_.find(box);
  if (!box || handler == leaveHandlers_.end()) return true;
  const QPointer<Form> alive(this);
  leaving_ = true;
  moved_ = false;
  const bool letsGo = handler->second();
  if (!alive) return false;
  leaving_ = false;
  if (!letsGo) KeepFocusIn(box);
  return letsGo && !moved_;
}

bool Form::LeaveBoxFor(const QWidget* control) {
  QWidget* around = control->parentWidget();
  while (around && !qobject_cast<Form*>(around)) around = around->parentWidget();
  auto* form = static_cast<Form*>(around);
  if (!form) return true;
  const QWidget* box = form->left_ ? form->left_.data() : form->FocusedBox();
  return box == control || form->LeaveBox();
}

bool Form::SettleLeaving() {
  const int before = loopsRun;
  return !leavingForm || (leavingForm->LeaveIfSettled() && loopsRun == before);
}

// Enter and a button's letter take no focus from the box that is being filled.
void Form::SettleFocused() {
  for (QWidget* widget = focusWidget(); widget && widget != this; widget = widget->parentWidget()) {
    if (auto* box = dynamic_cast<SettlesTyping*>(widget)) return box->SettleTyping();
  }
}

// In a box of several parts, one of them has the focus.
QWidget* Form::FocusedBox() const {
  for (QWidget* widget = focusWidget(); widget && widget != this; widget = widget->parentWidget()) {
    if (leaveHandlers_.count(widget)) return widget;
  }
  return nullptr;
}

void Form::GiveFocus(QWidget* box) {
  keeping_ = true;
  box->setFocus(Qt::OtherFocusReason);
  keeping_ = false;
  moved_ = true;
  left_.clear();
}

// A box on another tab returns with its tab.
void Form::KeepFocusIn(QWidget* box) {
  for (QWidget* around = box->parentWidget(); around && around != this;
       around = around->parentWidget()) {
    auto* tabs = qobject_cast<QTabWidget*>(around);
    for (int i = 0; tabs && i < tabs->count(); ++i) {
      if (tabs->widget(i)->isAncestorOf(box)) tabs->setCurrentIndex(i);
    }
  }
  // The pressed button never receives its release event, because the message took it.
  if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) button->setDown(false);
  GiveFocus(box);
}

// The focus returned to the screen in another box, so the first box is left now.
void Form::FollowFocus(QWidget* now) {
  if (!left_ || !now || now->window() != window() || !isAncestorOf(now)) return;
  if (now == left_ || left_->isAncestorOf(now)) {
    left_.clear();
  } else {
    LeaveWhenSettled();
  }
}

// The handler runs when the focus change is complete, because a message during it would leave two
// boxes with a cursor. A focus that moves to another screen leaves no box.
void Form::LeaveWhenSettled() {
  leavingForm = this;
  QMetaObject::invokeMethod(
      this,
      [this, box = left_] {
        if (box && left_ == box) LeaveIfSettled();
      },
      Qt::QueuedConnection);
}

bool Form::LeaveIfSettled() {
  if (!left_ || !isVisible() || closing_) return true;
  const QWidget* focused = QApplication::focusWidget();
  const bool elsewhere = focused && !isAncestorOf(focused);
  const bool givingUp = cancel_ && focused == cancel_;
  return elsewhere || givingUp || LeaveBox();
}

bool Form::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut && !keeping_ && isVisible() && !closing_) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    auto* box = qobject_cast<QWidget*>(watched);
    const bool left = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
                      reason != Qt::MenuBarFocusReason;
    if (left && leaveHandlers_.count(box)) {
      left_ = box;
      LeaveWhenSettled();
    }
  }
  return QWidget::eventFilter(watched, event);
}

// ---- Keys, closing ------------------------------------------------------------------------------

// Enter presses the button that has the focus.
QPushButton* Form::ButtonOfEnter() const {
  if (auto* focused = qobject_cast<QPushButton*>(focusWidget())) return focused;
  for (QPushButton* button : findChildren<QPushButton*>()) {
    if (button->isDefault()) return button;
  }
  return nullptr;
}

void Form::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && cancel_ && cancel_->isEnabled()) {
    return AfterEvent(this, [this] { GiveUp(); });
  }
  QPushButton* pressed = nullptr;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) pressed = ButtonOfEnter();
  if (!pressed || !pressed->isEnabled()) return QWidget::keyPressEvent(event);
  pressed->click();
}

// Cancelling does not validate the box being edited.
void Form::GiveUp() {
  closing_ = true;
  left_.clear();
  const QPointer<Form> alive(this);
  leaving_ = true;
  cancel_->click();
  if (alive) leaving_ = closing_ = false;
}

void Form::OrderTabs(std::initializer_list<QWidget*> controls) {
  QWidget* before = nullptr;
  for (QWidget* control : controls) {
    if (before) setTabOrder(before, control);
    before = control;
  }
}

void Form::closeEvent(QCloseEvent* event) {
  if (unloaded_) return QWidget::closeEvent(event);
  if (IsInEvent() && !dropping_) {
    // The question before closing is a message, which the click that closes must not wait for.
    event->ignore();
    return AfterEvent(this, [this] { close(); });
  }
  closing_ = true;
  bool agreed = false;
  Run("Form_QueryUnload", [&](Procedure&) { agreed = QueryUnload(); });
  if (agreed && !dropping_ && HasChanges()) {
    agreed = false;
    AskThenClose();
  }
  if (!agreed) {
    closing_ = false;
    event->ignore();
    return;
  }
  unloaded_ = true;
  for (QWidget* child : findChildren<QWidget*>()) {
    if (auto* keeper = dynamic_cast<KeepsTyping*>(child)) keeper->CommitTyping();
  }
  Run("Form_Unload", [&](Procedure&) { Form_Unload(); });
  emit Closed();
  QWidget::closeEvent(event);
}

bool Form::AskToDropChanges() const {
  const std::string question = "Modificarile din ecranul \"" + windowTitle().toStdString() +
                               "\" nu au fost salvate ! Doriti sa inchideti ecranul fara salvare ?";
  return ShowMessage({question, kYesNo | kQuestion | kDefaultStep, "Modificari nesalvate", {}}) ==
         kYes;
}

// The question comes when the event that closes the screen is over: whoever sent it may not live
// through a second event loop.
void Form::AskThenClose() {
  if (asking_) return;
  asking_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        const QPointer<Form> alive(this);
        const bool drop = AskToDropChanges();
        if (!alive) return;
        asking_ = false;
        if (drop) DropChangesAndClose();
      },
      Qt::QueuedConnection);
}

void Form::DropChangesAndClose() {
  const QPointer<Form> alive(this);
  dropping_ = true;
  close();
  if (alive) dropping_ = false;
}

// At the start the focus is in the first box, unless the screen chose another one.
void Form::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!focusWidget()) focusNextChild();
  // In a frame the frame says so.
  if (isWindow() && !event->spontaneous()) Activate();
}

void Form::Activate() {
  RunShort("Form_Activate", [this](Procedure&) { Form_Activate(); });
}

void Form::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (modalLoop_ && !event->spontaneous()) modalLoop_->quit();
}

void Form::ShowModal() {
  if (!parentWidget()) {
    setWindowFlags(windowFlags() | Qt::Dialog);
    setWindowModality(Qt::ApplicationModal);
  }
  closing_ = unloaded_ = false;
  QEventLoop loop;
  const QPointer<Form> alive(this);
  QEventLoop* before = modalLoop_;
  modalLoop_ = &loop;
  show();
  raise();
  activateWindow();
  ++loopsRun;
  loop.exec(QEventLoop::DialogExec);
  if (alive) modalLoop_ = before;
}

}  // namespace tevra
