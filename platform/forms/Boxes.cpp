#include "platform/forms/Boxes.h"

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QWheelEvent>
#include <algorithm>

#include "platform/system/Clock.h"
#include "platform/text/FailureText.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {

// ---- Text ---------------------------------------------------------------------------------------

TextBox::TextBox(const char* name, QWidget* parent, int maxLength) : QLineEdit(parent) {
  setObjectName(name);
  if (maxLength > 0) setMaxLength(maxLength);
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_ = QString::fromStdString(value.TextOrEmpty());
                                  setText(loaded_);
                                  setCursorPosition(0);
                                },
                                [this]() -> std::optional<Value> {
                                  if (text() == loaded_) return std::nullopt;
                                  return text().isEmpty() ? Value() : Value(Text());
                                },
                                [this](const FieldDef& field) {
                                  if (field.type == FieldType::Text) setMaxLength(field.size);
                                }});
}

void TextBox::SetUpperCase() {
  connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
    const int cursor = cursorPosition();
    setText(QString::fromStdString(UCase(typed.toStdString())));
    setCursorPosition(cursor);
  });
}

void TextBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

// ---- Number -------------------------------------------------------------------------------------

NumberBox::NumberBox(const char* name, const std::string& format, QWidget* parent)
    : QLineEdit(parent), format_(format) {
  setObjectName(name);
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // Typed over, also with the text that stood there, it is what was typed.
  connect(this, &QLineEdit::textEdited, this, [this] {
    number_.reset();
    shown_.clear();
  });
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_.reset();
                                  if (!value.IsNull()) loaded_ = value.AsDouble();
                                  SetNumber(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  const std::optional<double> number = Number();
                                  if (number == loaded_) return std::nullopt;
                                  return number ? Value(*number) : Value();
                                }});
}

bool NumberBox::IsEmpty() const {
  return text().trimmed().isEmpty();
}

bool NumberBox::IsNumeric() const {
  return (number_ && text() == shown_) || tevra::IsNumeric(Text());
}

std::optional<double> NumberBox::Number() const {
  if (number_ && text() == shown_) return number_;
  if (IsEmpty()) return std::nullopt;
  return CDbl(Text());
}

void NumberBox::Show(std::optional<double> number) {
  number_ = number;
  shown_.clear();
  if (number) {
    shown_ = QString::fromStdString(format_.empty() ? CStr(*number) : Format(*number, format_));
  }
  setText(shown_);
  setCursorPosition(0);
}

void NumberBox::SetNumber(std::optional<double> number) {
  Show(number);
}

void NumberBox::SetText(const std::string& text) {
  number_.reset();
  shown_.clear();
  setText(QString::fromStdString(text));
}

// A text that is no number stays as typed, for the screen's own check to name.
void NumberBox::Settle() {
  if (IsNumeric()) Show(Number());
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
  if (text() != shown_) Settle();
  QLineEdit::focusOutEvent(event);
}

void NumberBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

// ---- Date ---------------------------------------------------------------------------------------

namespace {

// Stands for "no date": the picker shows a blank for its first day.
const QDate kNoDate(1752, 9, 14);

QDate ToQt(const DateTime& date) {
  return {date.Year(), date.Month(), date.Day()};
}

}  // namespace

DateBox::DateBox(const char* name, QWidget* parent, const QString& format) : QDateEdit(parent) {
  setObjectName(name);
  const QLocale romanian(QLocale::Romanian, QLocale::Romania);
  setLocale(romanian);
  setCalendarPopup(true);
  calendarWidget()->setLocale(romanian);
  calendarWidget()->setFirstDayOfWeek(Qt::Monday);
  calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  setDisplayFormat(format);
  setDateRange(kNoDate, QDate(9999, 12, 31));
  setSpecialValueText(" ");
  setFocusPolicy(Qt::StrongFocus);
  SetDate(clock::Today());
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_.reset();
                                  if (!value.IsNull()) loaded_ = value.AsDateTime();
                                  SetDate(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  const std::optional<DateTime> date = Date();
                                  const bool same = loaded_ ? date == loaded_->Midnight() : !date;
                                  if (same) return std::nullopt;
                                  return date ? Value(*date) : Value();
                                }});
}

std::optional<DateTime> DateBox::Date() const {
  if (date() == kNoDate) return std::nullopt;
  return DateTime(date().year(), date().month(), date().day());
}

void DateBox::SetDate(std::optional<DateTime> date) {
  setDate(date ? ToQt(*date) : kNoDate);
}

// Typing or picking in an empty box begins at today and not in another century.
void DateBox::StartAtToday() {
  if (date() == kNoDate) setDate(ToQt(clock::Today()));
}

namespace {

bool IsSeparator(QChar character) {
  return QString("./-, ").contains(character);
}

// "01012006", "1/1/2006", separators as points.
QDate WholeDateIn(const QString& typed) {
  static const QRegularExpression kWhole(
      "^(\\d{1,2})\\.(\\d{1,2})\\.(\\d{4})$|^(\\d{2})(\\d{2})(\\d{4})$");
  const QRegularExpressionMatch match = kWhole.match(typed);
  if (!match.hasMatch()) return {};
  const int first = match.captured(1).isEmpty() ? 4 : 1;
  return {match.captured(first + 2).toInt(), match.captured(first + 1).toInt(),
          match.captured(first).toInt()};
}

}  // namespace

// The picker takes a date part by part and each part for the month and year that stand there: "31"
// typed over a day of November becomes 30. The whole date together says what was meant.
std::optional<QDate> DateBox::TakeTyped(const QKeyEvent& event) {
  constexpr int kLongest = 10;
  if (event.text().isEmpty()) return std::nullopt;
  const QChar character = event.text().at(0);
  const bool digit = character.isDigit();
  const bool begins = typed_.isEmpty() && digit && currentSection() == QDateTimeEdit::DaySection;
  if ((!digit && !IsSeparator(character)) || typed_.size() >= kLongest) typed_.clear();
  if (typed_.isEmpty() && !begins) return std::nullopt;
  typed_ += digit ? character : QChar('.');
  const QDate date = WholeDateIn(typed_);
  if (!date.isValid()) return std::nullopt;
  typed_.clear();
  // A day before any that the picker has would leave it without one.
  return date > kNoDate ? std::optional(date) : std::nullopt;
}

// From day to month to year; the picker may have gone on by itself behind two digits.
void DateBox::GoToNextPart() {
  static constexpr QDateTimeEdit::Section kParts[] = {
      QDateTimeEdit::DaySection, QDateTimeEdit::MonthSection, QDateTimeEdit::YearSection};
  const int part =
      typed_.isEmpty() ? currentSectionIndex() + 1 : static_cast<int>(typed_.count('.'));
  setSelectedSection(kParts[std::clamp(part, 0, 2)]);
}

void DateBox::SetRequired() {
  setSpecialValueText({});
  setMinimumDate(kNoDate.addDays(1));
}

void DateBox::focusInEvent(QFocusEvent* event) {
  typed_.clear();
  QDateEdit::focusInEvent(event);
  if (event->reason() != Qt::PopupFocusReason) setSelectedSection(QDateTimeEdit::DaySection);
}

// "31/12" is of the year on show, a short year of this century or the last.
void DateBox::TakeUnfinished() {
  static const QRegularExpression kShort("^(\\d{1,2})\\.(\\d{1,2})(?:\\.(\\d{2})?)?$");
  constexpr int kFirstOfLastCentury = 30;
  const QRegularExpressionMatch match = kShort.match(typed_);
  typed_.clear();
  if (!match.hasMatch()) return;
  int year = date().year();
  if (!match.captured(3).isEmpty()) {
    const int typed = match.captured(3).toInt();
    year = typed + (typed < kFirstOfLastCentury ? 2000 : 1900);
  }
  const QDate whole(year, match.captured(2).toInt(), match.captured(1).toInt());
  if (whole.isValid() && whole > kNoDate) setDate(whole);
}

void DateBox::focusOutEvent(QFocusEvent* event) {
  QDateEdit::focusOutEvent(event);
  TakeUnfinished();
}

// Tab leaves the box; the arrows go from day to month to year.
bool DateBox::focusNextPrevChild(bool next) {
  return QWidget::focusNextPrevChild(next);
}

void DateBox::keyPressEvent(QKeyEvent* event) {
  const bool typed = !event->text().isEmpty() && event->text().at(0).isDigit();
  const bool steps = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
  if (date() == kNoDate && (typed || steps)) {
    StartAtToday();
    setSelectedSection(QDateTimeEdit::DaySection);
  }
  if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) typed_.clear();
  const std::optional<QDate> whole = TakeTyped(*event);
  // The toolkit takes a separator for leaving the box.
  if (!event->text().isEmpty() && IsSeparator(event->text().at(0))) return GoToNextPart();
  QDateEdit::keyPressEvent(event);
  if (whole) setDate(*whole);
}

void DateBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QDateEdit::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void DateBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

// ---- Yes or no ----------------------------------------------------------------------------------

CheckBox::CheckBox(const char* name, const QString& caption, QWidget* parent)
    : QCheckBox(caption, parent) {
  setObjectName(name);
  connect(this, &QCheckBox::toggled, this, [this] {
    if (!byUser_) emit Click();
  });
  connect(
      this, &QCheckBox::clicked, this, [this] { emit Click(); }, Qt::QueuedConnection);
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_ = !value.IsNull() && value.AsBool();
                                  setChecked(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  if (isChecked() == loaded_) return std::nullopt;
                                  return Value::YesNo(isChecked());
                                }});
}

void CheckBox::nextCheckState() {
  byUser_ = true;
  QCheckBox::nextCheckState();
  byUser_ = false;
}

void CheckBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

// ---- One of several
// --------------------------------------------------------------------------------

OptionButton::OptionButton(const char* name, const QString& caption, QWidget* parent)
    : QRadioButton(caption, parent) {
  setObjectName(name);
  connect(this, &QRadioButton::toggled, this, [this](bool chosen) {
    if (chosen && !byUser_) emit Click();
  });
  connect(
      this, &QRadioButton::clicked, this,
      [this] {
        // The box that was left may have led to another choice.
        if (isChecked()) emit Click();
      },
      Qt::QueuedConnection);
}

void OptionButton::nextCheckState() {
  byUser_ = true;
  QRadioButton::nextCheckState();
  byUser_ = false;
}

}  // namespace tevra
