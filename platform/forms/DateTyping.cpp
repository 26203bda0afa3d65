#include "platform/forms/DateTyping.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace tevra {
namespace {

qsizetype Room(DatePart part) {
  return part == DatePart::kYear ? 4 : 2;
}

DatePart Next(DatePart part) {
  return part == DatePart::kDay ? DatePart::kMonth : DatePart::kYear;
}

std::size_t Index(DatePart part) {
  return static_cast<std::size_t>(part);
}

// Nothing for a year of one digit or three.
std::optional<int> YearOf(const QString& typed) {
  constexpr int kFirstOfLastCentury = 30;
  const int year = typed.toInt();
  if (typed.size() == 4) return year;
  if (typed.size() != 2) return std::nullopt;
  return year + (year < kFirstOfLastCentury ? 2000 : 1900);
}

// "decembrie", "dec" or "dec.": 12; 0 for what is no month.
int MonthOf(const QString& word) {
  static const QStringList kNames = {"ianuarie",   "februarie", "martie",    "aprilie",
                                     "mai",        "iunie",     "iulie",     "august",
                                     "septembrie", "octombrie", "noiembrie", "decembrie"};
  constexpr qsizetype kShortest = 3;
  if (word.size() < kShortest) return 0;
  const auto named = std::find_if(kNames.begin(), kNames.end(), [&](const QString& name) {
    return name.startsWith(word, Qt::CaseInsensitive);
  });
  return named == kNames.end() ? 0 : static_cast<int>(named - kNames.begin()) + 1;
}

}  // namespace

void DateTyping::BeginAt(DatePart part) {
  typed_.clear();
  begin_ = part;
}

std::optional<DateTyping::Groups> DateTyping::Split(const QString& typed, DatePart begin) {
  Groups groups;
  DatePart part = begin;
  for (const QChar character : typed) {
    if (character == '.') {
      groups.closed = true;
      continue;
    }
    const bool full = !groups.texts.empty() && groups.texts.back().size() == Room(part);
    if (groups.texts.empty()) {
      groups.texts.emplace_back();
    } else if (groups.closed || full) {
      if (part == DatePart::kYear) return std::nullopt;
      part = Next(part);
      groups.texts.emplace_back();
    }
    groups.closed = false;
    groups.texts.back() += character;
  }
  // Something is to follow the year: it was a day or a month.
  if (groups.closed && part == DatePart::kYear && begin != DatePart::kDay) return std::nullopt;
  return groups;
}

// Of a date from its day on: false when its day or month cannot be one, however it goes on.
bool DateTyping::MayBegin(const Groups& groups) {
  constexpr int kMost[] = {31, 12};
  for (std::size_t i = 0; i < std::min<std::size_t>(groups.texts.size(), 2); ++i) {
    const bool last = i + 1 == groups.texts.size();
    const bool open = last && !groups.closed && groups.texts[i].size() < 2;
    const int number = groups.texts[i].toInt();
    if (!open && (number < 1 || number > kMost[i])) return false;
  }
  return true;
}

DateTyping::Step DateTyping::Take(QChar character) {
  if (typed_.isEmpty() && character == '.') {
    begin_ = Next(begin_);
    return Step::kMore;
  }
  const QString longer = typed_ + character;
  std::optional<Groups> groups = Split(longer, begin_);
  if (!groups && begin_ != DatePart::kDay) {
    groups = Split(longer, DatePart::kDay);
    if (!groups || !MayBegin(*groups)) return Step::kFull;
    begin_ = DatePart::kDay;
  }
  if (!groups) return Step::kFull;
  typed_ = longer;
  const bool whole =
      begin_ == DatePart::kDay && groups->texts.size() == 3 && groups->texts[2].size() == 4;
  return whole ? Step::kWhole : Step::kMore;
}

void DateTyping::TakeBack() {
  typed_.chop(1);
}

DatePart DateTyping::At() const {
  const std::optional<Groups> groups = Split(typed_, begin_);
  if (!groups || groups->texts.empty()) return begin_;
  const auto last = static_cast<DatePart>(Index(begin_) + groups->texts.size() - 1);
  const bool done = groups->closed || groups->texts.back().size() == Room(last);
  return done ? Next(last) : last;
}

QString DateTyping::Of(DatePart part) const {
  const std::optional<Groups> groups = Split(typed_, begin_);
  if (!groups || part < begin_) return {};
  const std::size_t index = Index(part) - Index(begin_);
  return index < groups->texts.size() ? groups->texts[index] : QString();
}

std::optional<QDate> DateTyping::Over(const QDate& shown) const {
  const QString day = Of(DatePart::kDay);
  const QString month = Of(DatePart::kMonth);
  const QString year = Of(DatePart::kYear);
  const std::optional<int> inYear = year.isEmpty() ? shown.year() : YearOf(year);
  if (!inYear) return std::nullopt;
  const int inMonth = month.isEmpty() ? shown.month() : month.toInt();
  const QDate first(*inYear, inMonth, 1);
  if (!first.isValid()) return std::nullopt;
  const int onDay = day.isEmpty() ? std::min(shown.day(), first.daysInMonth()) : day.toInt();
  const QDate date(*inYear, inMonth, onDay);
  return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QDate> DateInText(const QString& text) {
  static const QRegularExpression kTime("[T ]+\\d{1,2}:\\d{2}(:\\d{2}(\\.\\d+)?)?Z?$");
  static const QRegularExpression kDayFirst(
      "^(\\d{1,2})(?:\\s*[./,-]\\s*|\\s+)(\\d{1,2}|\\pL{3,})\\.?(?:\\s*[./"
      ",-]\\s*|\\s+)(\\d{4}|\\d{2})\\.?$");
  static const QRegularExpression kYearFirst("^(\\d{4})[./-](\\d{1,2})[./-](\\d{1,2})$");
  static const QRegularExpression kDigits("^(\\d{2})(\\d{2})(\\d{4})$");
  const QString plain = text.simplified().remove(kTime);
  QString day, month, year;
  if (const auto match = kYearFirst.match(plain); match.hasMatch()) {
    year = match.captured(1);
    month = match.captured(2);
    day = match.captured(3);
  } else {
    auto dayFirst = kDayFirst.match(plain);
    if (!dayFirst.hasMatch()) dayFirst = kDigits.match(plain);
    if (!dayFirst.hasMatch()) return std::nullopt;
    day = dayFirst.captured(1);
    month = dayFirst.captured(2);
    year = dayFirst.captured(3);
  }
  const int inMonth = month.at(0).isDigit() ? month.toInt() : MonthOf(month);
  const QDate date(YearOf(year).value_or(0), inMonth, day.toInt());
  return date.isValid() ? std::optional(date) : std::nullopt;
}

}  // namespace tevra
