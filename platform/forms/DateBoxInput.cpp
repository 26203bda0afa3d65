// How a date box takes keys, the mouse and the clipboard.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QWheelEvent>

#include "platform/forms/DateBox.h"
#include "platform/forms/InputMark.h"

namespace tevra {

namespace {

bool IsSeparator(QChar character) {
  return QString("./-, ").contains(character);
}

// The character that a key types into a date; none for any other key.
QChar TypedBy(const QKeyEvent& event) {
  constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (event.text().isEmpty() || event.modifiers() & kCommands) return {};
  const QChar character = event.text().at(0);
  if (character >= '0' && character <= '9') return character;
  return IsSeparator(character) ? QChar('.') : QChar();
}

}  // namespace

// ---- Keys ---------------------------------------------------------------------------------------

void DateBox::keyPressEvent(QKeyEvent* event) {
  event->accept();
  const QChar typed = TypedBy(*event);
  if (!typed.isNull()) return Type(typed);
  if (Edit(*event)) return;
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_F4:
      SettleTyping();
      return QDateEdit::keyPressEvent(event);
    case Qt::Key_Escape:
      DropTyping();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      SettleTyping();
      break;
    default:
      break;
  }
  event->ignore();
}

// The keys that work on the text. A letter types nothing.
bool DateBox::Edit(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Paste)) {
    Paste(QApplication::clipboard()->text());
  } else if (event.matches(QKeySequence::Copy)) {
    Copy();
  } else if (event.matches(QKeySequence::SelectAll)) {
    SettleTyping();
    lineEdit()->selectAll();
  } else if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) {
    Erase(event.key() == Qt::Key_Backspace);
  } else if (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right) {
    Move(event.key() == Qt::Key_Left ? -1 : 1);
  } else if (event.key() == Qt::Key_Home || event.key() == Qt::Key_End) {
    SettleTyping();
    GoTo(event.key() == Qt::Key_Home ? DatePart::kDay : DatePart::kYear);
  } else {
    return !event.text().isEmpty() && event.text().at(0).isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  }
  return true;
}

void DateBox::Erase(bool before) {
  if (!typing_.IsEmpty()) {
    if (!before) return DropTyping();
    const DatePart begin = typing_.Begin();
    typing_.TakeBack();
    if (!typing_.IsEmpty()) return ShowTyping();
    setDate(date());
    return GoTo(begin);
  }
  if (!before && IsOptional()) SetDate(std::nullopt);
}

void DateBox::Paste(const QString& text) {
  DropTyping();
  std::optional<QDate> date = DateInText(text);
  if (!date && first_ == DatePart::kMonth) date = DateInText("1." + text.trimmed());
  if (date && IsTaken(*date)) {
    mark_->Clear();
    setDate(*date);
    GoTo(DatePart::kDay);
  } else if (!text.trimmed().isEmpty()) {
    constexpr int kLongest = 40;
    Refuse(text.simplified().left(kLongest));
  }
}

void DateBox::Copy() const {
  if (HasDate()) QApplication::clipboard()->setText(text());
}

void DateBox::stepBy(int steps) {
  SettleTyping();
  if (!HasDate()) {
    setDate(Shown());
    GoTo(DatePart::kDay);
  }
  if (first_ == DatePart::kMonth && currentSection() == MonthSection) {
    setDate(date().addMonths(steps));
    return GoTo(DatePart::kMonth);
  }
  QDateEdit::stepBy(steps);
}

// The picker stops at December.
QAbstractSpinBox::StepEnabled DateBox::stepEnabled() const {
  if (first_ == DatePart::kDay) return QDateEdit::stepEnabled();
  return StepUpEnabled | StepDownEnabled;
}

// ---- Focus, mouse -------------------------------------------------------------------------------

// A click selects the part under it.
bool DateBox::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool mouse = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
                     type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove;
  if (watched != lineEdit() || !mouse) return QDateEdit::eventFilter(watched, event);
  const auto& at = static_cast<const QMouseEvent&>(*event);
  const bool pressed = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
  if (pressed && at.button() == Qt::LeftButton) {
    // In the text as the user sees it: a settled one may stand elsewhere.
    const DatePart part = PartAt(lineEdit()->cursorPositionAt(at.position().toPoint()));
    SettleTyping();
    GoTo(part);
  }
  if (pressed && at.button() == Qt::MiddleButton) {
    Paste(QApplication::clipboard()->text(QClipboard::Selection));
  }
  return true;
}

void DateBox::focusInEvent(QFocusEvent* event) {
  QDateEdit::focusInEvent(event);
  if (event->reason() != Qt::PopupFocusReason && typing_.IsEmpty()) GoTo(DatePart::kDay);
}

void DateBox::focusOutEvent(QFocusEvent* event) {
  SettleTyping();
  QDateEdit::focusOutEvent(event);
}

// Tab leaves the box; the arrows go from day to month to year.
bool DateBox::focusNextPrevChild(bool next) {
  return QWidget::focusNextPrevChild(next);
}

// The arrow that opens the calendar.
void DateBox::mousePressEvent(QMouseEvent* event) {
  SettleTyping();
  QDateEdit::mousePressEvent(event);
}

void DateBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QDateEdit::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void DateBox::contextMenuEvent(QContextMenuEvent* event) {
  SettleTyping();
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction("&Copiaza", this, [this] { Copy(); })->setEnabled(HasDate());
  menu->addAction("&Lipeste", this, [this] { Paste(QApplication::clipboard()->text()); });
  if (IsOptional()) menu->addAction("&Goleste", this, [this] { SetDate(std::nullopt); });
  menu->popup(event->globalPos());
}

}  // namespace tevra
