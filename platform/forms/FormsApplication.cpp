#include "platform/forms/FormsApplication.h"

#include <QAbstractButton>
#include <QPointer>
#include <QShortcutEvent>
#include <QTabBar>
#include <QThread>
#include <QWidget>
#include <deque>
#include <utility>

#include "platform/forms/Form.h"

namespace tevra {
namespace {

struct Action {
  QPointer<QObject> context;
  std::function<void()> run;
};

int LoopLevel() {
  return QThread::currentThread()->loopLevel();
}

// An action may run an event loop, and what it calls is not to wait for itself.
void RunAll(std::deque<Action>& actions) {
  const EventsLetThrough through;
  while (!actions.empty()) {
    const Action action = std::move(actions.front());
    actions.pop_front();
    if (action.context) action.run();
  }
}

// An input event that is being dispatched. One event makes the toolkit send others; the outermost
// of them has the actions. An event loop within a dispatch begins anew.
class Dispatch {
 public:
  Dispatch() : before_(std::exchange(current_, this)), level_(LoopLevel()) {}
  ~Dispatch() { current_ = before_; }
  Dispatch(const Dispatch&) = delete;
  Dispatch& operator=(const Dispatch&) = delete;

  // Of the event loop that runs now; nothing when it dispatches no input.
  static Dispatch* Outermost() {
    Dispatch* outermost = nullptr;
    for (Dispatch* each = current_; each && each->level_ == LoopLevel(); each = each->before_) {
      outermost = each;
    }
    return outermost;
  }

  std::deque<Action> actions;

 private:
  friend class tevra::EventsLetThrough;
  static inline Dispatch* current_ = nullptr;
  Dispatch* before_;
  int level_;
};

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

// What may make a control act.
bool MayAct(QEvent::Type type) {
  return IsInput(type) && type != QEvent::MouseMove && type != QEvent::KeyRelease &&
         type != QEvent::Wheel;
}

// Tabs change without taking the focus: the box on the tab that goes would be left too late.
void FocusTabs(QObject* receiver) {
  auto* tabs = qobject_cast<QTabBar*>(receiver);
  if (tabs && tabs->focusPolicy() != Qt::NoFocus) tabs->setFocus(Qt::MouseFocusReason);
}

// The toolkit lets a tenth of a second pass between the letter and the click. A key typed meanwhile
// would come first.
bool PressByLetter(QObject* receiver, QEvent& event) {
  auto* button = qobject_cast<QAbstractButton*>(receiver);
  if (!button || static_cast<QShortcutEvent&>(event).isAmbiguous()) return false;
  event.accept();
  if (!button->isEnabled()) return true;
  if (button->isCheckable() && button->focusPolicy() & Qt::ClickFocus) {
    button->setFocus(Qt::ShortcutFocusReason);
  }
  button->click();
  return true;
}

}  // namespace

FormsApplication::FormsApplication(int& argc, char** argv) : QApplication(argc, argv) {
  installEventFilter(this);
}

bool FormsApplication::notify(QObject* receiver, QEvent* event) {
  if (!IsInput(event->type())) return QApplication::notify(receiver, event);
  std::deque<Action> actions;
  bool done = false;
  {
    Dispatch dispatch;
    done = QApplication::notify(receiver, event);
    if (Dispatch::Outermost() == &dispatch) actions = std::move(dispatch.actions);
  }
  RunAll(actions);
  return done;
}

// A press has moved the focus by now: the box that lost it is left before the control under the
// mouse acts.
bool FormsApplication::eventFilter(QObject* receiver, QEvent* event) {
  if (!MayAct(event->type()) || receiver->isWindowType()) return false;
  const QPointer<QObject> alive(receiver);
  if (Dispatch* dispatch = Dispatch::Outermost()) RunAll(dispatch->actions);
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Shortcut) {
    FocusTabs(receiver);
  }
  const EventsLetThrough through;
  const bool goesOn = Form::SettleLeaving() && alive;
  if (goesOn && event->type() == QEvent::Shortcut) return PressByLetter(receiver, *event);
  if (goesOn) return false;
  event->accept();
  return true;
}

void AfterEvent(QObject* context, std::function<void()> action) {
  if (Dispatch* dispatch = Dispatch::Outermost()) {
    dispatch->actions.push_back({context, std::move(action)});
  } else {
    action();
  }
}

bool IsInEvent() {
  return Dispatch::Outermost();
}

EventsLetThrough::EventsLetThrough() : before_(std::exchange(Dispatch::current_, nullptr)) {}

EventsLetThrough::~EventsLetThrough() {
  Dispatch::current_ = static_cast<Dispatch*>(before_);
}

}  // namespace tevra
