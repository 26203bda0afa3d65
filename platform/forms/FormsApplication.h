// How input becomes work: what a key, a click or a menu sets off runs when the toolkit is done with
// that event.
#pragma once

#include <QApplication>
#include <functional>

namespace tevra {

/// The application of a program with screens.
///
/// A message, a dialog and the window of long work run an event loop of their own. Run from within
/// the handler of a click, that loop may delete the menu or the editor whose handler still runs.
/// Therefore such handlers hand their work to AfterEvent. It runs before the next event is fetched,
/// so it makes no difference how fast the user types and clicks.
///
/// Before a key or a click reaches a control, the box that the user left for it has been left (see
/// Form::OnLeave).
class FormsApplication : public QApplication {
  Q_OBJECT

 public:
  FormsApplication(int& argc, char** argv);

  bool notify(QObject* receiver, QEvent* event) override;
  bool eventFilter(QObject* receiver, QEvent* event) override;
};

/// Runs `action` when the input event that is being handled has been dispatched, in the order of
/// the calls; at once when none is. Not at all when `context` is gone by then.
void AfterEvent(QObject* context, std::function<void()> action);

/// True while an input event is being dispatched, by the event loop that runs now.
bool IsInEvent();

/// To be held while code outside a QEventLoop lets events through: what they set off is not to wait
/// for the event that this code runs in.
class EventsLetThrough {
 public:
  EventsLetThrough();
  ~EventsLetThrough();
  EventsLetThrough(const EventsLetThrough&) = delete;
  EventsLetThrough& operator=(const EventsLetThrough&) = delete;

 private:
  void* before_;
};

}  // namespace tevra
