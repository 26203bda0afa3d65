#include "platform/forms/DateBox.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <algorithm>

#include "platform/forms/InputMark.h"
#include "platform/system/Clock.h"

namespace tevra {

namespace {

// The picker's first day, which it shows as a blank: no date.
const QDate kNoDate(1752, 9, 14);

constexpr QDateTimeEdit::Section kSections[] = {
    QDateTimeEdit::DaySection, QDateTimeEdit::MonthSection, QDateTimeEdit::YearSection};
constexpr DatePart kParts[] = {DatePart::kDay, DatePart::kMonth, DatePart::kYear};

QDate ToQt(const DateTime& date) {
  return {date.Year(), date.Month(), date.Day()};
}

}  // namespace

DateBox::DateBox(const char* name, QWidget* parent, const QString& format)
    : QDateEdit(parent), first_(format.contains('d') ? DatePart::kDay : DatePart::kMonth) {
  setObjectName(name);
  setLocale(QLocale(QLocale::Romanian, QLocale::Romania));
  if (first_ == DatePart::kDay) AddCalendar();
  setDisplayFormat(format);
  setDateRange(kNoDate, QDate(9999, 12, 31));
  setSpecialValueText(" ");
  setFocusPolicy(Qt::StrongFocus);
  // The text of a half-typed date is the box's own: the toolkit would mend it.
  lineEdit()->setValidator(nullptr);
  lineEdit()->setAcceptDrops(false);
  lineEdit()->installEventFilter(this);
  mark_ = new InputMark(this, lineEdit());
  connect(this, &QDateEdit::dateChanged, this, [this] { mark_->Clear(); });
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

void DateBox::AddCalendar() {
  setCalendarPopup(true);
  calendarWidget()->setLocale(locale());
  calendarWidget()->setFirstDayOfWeek(Qt::Monday);
  calendarWidget()->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
}

// ---- The date -----------------------------------------------------------------------------------

bool DateBox::IsOptional() const {
  return minimumDate() == kNoDate;
}

// A day before any that the picker has would leave it without one.
bool DateBox::IsTaken(const QDate& date) const {
  return date > kNoDate && date >= minimumDate() && date <= maximumDate();
}

bool DateBox::HasDate() const {
  return date() != kNoDate;
}

// Typing in an empty box begins at today and not in another century.
QDate DateBox::Shown() const {
  return HasDate() ? date() : ToQt(clock::Today());
}

std::optional<DateTime> DateBox::Date() const {
  QDate meant = date();
  if (!typing_.IsEmpty()) {
    const std::optional<QDate> typed = typing_.Over(Shown());
    if (typed && IsTaken(*typed)) meant = *typed;
  }
  if (meant == kNoDate) return std::nullopt;
  return DateTime(meant.year(), meant.month(), meant.day());
}

void DateBox::SetDate(std::optional<DateTime> date) {
  typing_.BeginAt(part_);
  mark_->Clear();
  setDate(date ? ToQt(*date) : kNoDate);
}

void DateBox::SetRequired() {
  setSpecialValueText({});
  setMinimumDate(kNoDate.addDays(1));
}

void DateBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

const QString& DateBox::Refused() const {
  return mark_->Why();
}

// ---- Typing -------------------------------------------------------------------------------------

void DateBox::Type(QChar character) {
  mark_->Clear();
  if (typing_.IsEmpty()) {
    const bool all = lineEdit()->hasSelectedText() && lineEdit()->selectedText() == text();
    const auto section = std::find(std::begin(kSections), std::end(kSections), currentSection());
    part_ =
        all || section == std::end(kSections) ? first_ : kParts[section - std::begin(kSections)];
    typing_.BeginAt(part_);
  }
  const DateTyping::Step step = typing_.Take(character);
  if (step == DateTyping::Step::kFull) {
    // It begins the next date, or the next year where only years are typed.
    const DatePart part = typing_.Begin() == DatePart::kYear ? DatePart::kYear : first_;
    SettleTyping();
    typing_.BeginAt(part);
    typing_.Take(character);
  }
  if (step == DateTyping::Step::kWhole) {
    SettleTyping();
    GoTo(DatePart::kDay);
  } else if (typing_.IsEmpty()) {
    GoTo(typing_.Begin());
  } else {
    ShowTyping();
  }
}

// What was typed stands in its parts, the date on show in the others; the part that comes next is
// selected.
void DateBox::ShowTyping() {
  const QChar separator = displayFormat().at(displayFormat().indexOf("yyyy") - 1);
  const bool padded = displayFormat().startsWith("dd");
  const QDate shown = Shown();
  const QString stands[] = {QString("%1").arg(shown.day(), padded ? 2 : 1, 10, QChar('0')),
                            QString("%1").arg(shown.month(), 2, 10, QChar('0')),
                            QString::number(shown.year())};
  QString whole;
  int start = 0;
  int length = 0;
  // A whole date may be typed into a box for a month too.
  const auto first = static_cast<std::size_t>(std::min(first_, typing_.Begin()));
  for (std::size_t i = first; i < std::size(kParts); ++i) {
    if (i > first) whole += separator;
    const QString typed = typing_.Of(kParts[i]);
    if (typing_.At() == kParts[i]) {
      start = static_cast<int>(whole.size() + typed.size());
      length = typed.isEmpty() ? static_cast<int>(stands[i].size()) : 0;
    }
    whole += typed.isEmpty() ? stands[i] : typed;
  }
  const QSignalBlocker quiet(lineEdit());
  lineEdit()->setText(whole);
  lineEdit()->setCursorPosition(start);
  if (length > 0) lineEdit()->setSelection(start, length);
}

void DateBox::DropTyping() {
  if (typing_.IsEmpty()) return;
  const DatePart part = typing_.Begin();
  typing_.BeginAt(part);
  setDate(date());
  GoTo(part);
}

void DateBox::SettleTyping() {
  if (typing_.IsEmpty()) return;
  ShowTyping();
  const std::optional<QDate> meant = typing_.Over(Shown());
  const QString typed = lineEdit()->text();
  typing_.BeginAt(DatePart::kDay);
  if (meant && IsTaken(*meant)) {
    mark_->Clear();
    setDate(*meant);
  } else {
    setDate(date());
    Refuse(typed);
  }
}

void DateBox::Refuse(const QString& typed) {
  const QString stays = HasDate() ? text() : QString("fara data");
  mark_->Show(QString("\"%1\" nu este o data; a ramas: %2").arg(typed, stays));
}

// ---- Parts --------------------------------------------------------------------------------------

void DateBox::GoTo(DatePart part) {
  part = std::max(part, first_);
  part_ = part;
  typing_.BeginAt(part);
  {
    // The picker notices a new section by the cursor's move only.
    const QSignalBlocker quiet(lineEdit());
    lineEdit()->setCursorPosition(part == first_ ? static_cast<int>(text().size()) : 0);
  }
  setSelectedSection(kSections[static_cast<std::size_t>(part)]);
}

void DateBox::Move(int parts) {
  SettleTyping();
  const auto section = std::find(std::begin(kSections), std::end(kSections), currentSection());
  const auto now = static_cast<int>(section - std::begin(kSections)) % 3;
  GoTo(kParts[std::clamp(now + parts, 0, 2)]);
}

DatePart DateBox::PartAt(int cursor) const {
  const QString before = text().left(cursor);
  const auto separators =
      std::count_if(before.begin(), before.end(), [](QChar each) { return !each.isDigit(); });
  return kParts[std::clamp<qsizetype>(separators + static_cast<int>(first_), 0, 2)];
}

}  // namespace tevra
