// The base class of all screens: a window whose events run procedures, with one way to show
// failures.
#pragma once

#include <QAbstractButton>
#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <map>

#include "platform/forms/ChangeWatch.h"
#include "platform/system/StandardError.h"

class QEventLoop;

namespace tevra {

/// A control that may contain unwritten edits, such as a grid with an open cell.
class KeepsTyping {
 public:
  virtual ~KeepsTyping() = default;
  /// Writes the edits; called before the screen closes.
  virtual void CommitTyping() = 0;
};

/// A box whose text becomes a value when the box is left.
class SettlesTyping {
 public:
  virtual ~SettlesTyping() = default;
  /// Converts the current text, as leaving the box does.
  virtual void SettleTyping() = 0;
};

/// A screen. Messages and tests use its objectName. Windows.h says how screens are shown and when
/// they are deleted.
class Form : public QWidget {
  Q_OBJECT

 public:
  /// `name`: the screen's name; `caption`: its title.
  Form(const char* name, const QString& caption, QWidget* parent = nullptr);
  ~Form() override;

  /// Shows the screen modally and returns when it was closed or hidden.
  void ShowModal();

  /// The screen has come to the front: after it was shown, or from another screen of the frame.
  /// Messages and menus in between do not count.
  void Activate();

  /// Runs the leave handler of the box that has the focus or has just lost it, unless it has run
  /// already. Needed where a key presses a button that does not take the focus. False when the box
  /// keeps the focus or its handler moved the focus; the caller must then drop the user's action.
  bool LeaveBox();

  /// The same before `control` acts; a control that has the focus itself is not left.
  static bool LeaveBoxFor(const QWidget* control);

  /// Runs the leave handler that is still due in any screen. False in the cases of LeaveBox, and
  /// when a message was shown, because the user's click then belongs to the message.
  static bool SettleLeaving();

  /// True when a box has changed since MarkSaved.
  bool HasChanges() const { return changes_.Differs(); }
  bool HasChanges(const QWidget* part) const { return changes_.Differs(part); }
  /// Asks before changes are lost; true when the user gives them up. Runs an event loop of its own,
  /// so no event handler may call it directly.
  bool AskToDropChanges() const;
  /// Closes the screen without the question.
  void DropChangesAndClose();

 signals:
  void Closed();
  /// Emitted when the user or the screen changed a box after MarkSaved.
  void Edited();

 protected:
  /// The body of a procedure; it counts its statements in `procedure.line` for the error message.
  using Body = std::function<void(Procedure& procedure)>;
  /// The same for leaving a box; false keeps the focus in it.
  using LeaveBody = std::function<bool(Procedure& procedure)>;
  using OnFailure = std::function<void(const Failure& failure, const Procedure& procedure)>;

  /// Runs a procedure of this screen. A failure is shown in the standard long form and ends only
  /// this procedure, not its caller. True when it ran to its end.
  bool Run(const char* procedure, const Body& body);

  /// The same with the short form: the number and the description, under the procedure's name
  /// between blanks.
  bool RunShort(const char* procedure, const Body& body);

  /// Runs a procedure whose failures have their own form.
  bool RunWith(const char* procedure, const Body& body, const OnFailure& onFailure);

  /// Pressing the button runs the procedure after the leave handler of the box with the focus,
  /// unless that keeps the focus.
  void OnClick(QAbstractButton* button, const char* procedure, Body body);
  void OnClickShort(QAbstractButton* button, const char* procedure, Body body);

  /// Leaving the box runs the procedure, before the next control receives the key or the click. A
  /// box is not left when the focus goes to another window or screen, a menu or a popup, or when
  /// the user cancels by Escape, the cancel button or closing the screen. When the procedure
  /// returns false or fails, the focus goes back to the box.
  void OnLeave(QWidget* box, const char* procedure, LeaveBody body);

  /// Called each time the screen comes to the front.
  virtual void Form_Activate() {}
  /// Moves the focus without leaving a box: no leave handler runs.
  void GiveFocus(QWidget* box);

  /// Remembers the boxes of `part`, or of the whole screen, as saved. The screen asks before it
  /// closes when one of them was changed later.
  void MarkSaved(QWidget* part = nullptr) { changes_.Remember(part ? part : this); }

  /// Called before the screen closes; false keeps it open.
  virtual bool QueryUnload() { return true; }
  /// Called once when the screen closes, after QueryUnload returned true.
  virtual void Form_Unload() {}

  /// Enter presses the button that has the focus, otherwise the default button; Escape presses the
  /// button set here. A control may use these keys itself.
  void SetCancelButton(QPushButton* button) { cancel_ = button; }

  /// Sets the order in which Tab goes through the controls.
  static void OrderTabs(std::initializer_list<QWidget*> controls);

  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPushButton* ButtonOfEnter() const;
  QWidget* FocusedBox() const;
  void FollowFocus(QWidget* now);
  void LeaveWhenSettled();
  bool LeaveIfSettled();
  void SettleFocused();
  void GiveUp();
  void KeepFocusIn(QWidget* box);
  void AskThenClose();

  ChangeWatch changes_;
  QPushButton* cancel_ = nullptr;
  std::map<QWidget*, std::function<bool()>> leaveHandlers_;
  QPointer<QWidget> left_;  // lost the focus; its handler has not run yet
  bool leaving_ = false;    // a handler is running
  bool moved_ = false;      // .. and put the focus elsewhere
  bool keeping_ = false;    // the focus is being returned
  bool closing_ = false;
  bool unloaded_ = false;
  bool asking_ = false;    // whether changes may be lost
  bool dropping_ = false;  // they may
  QEventLoop* modalLoop_ = nullptr;
};

}  // namespace tevra
