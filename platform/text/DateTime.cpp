#include "platform/text/DateTime.h"

#include <chrono>
#include <cmath>

#include "platform/text/FailureText.h"

namespace tevra {
namespace {

constexpr std::int64_t kSecondsOfDay = 86400;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

constexpr std::chrono::sys_days kDayZero{std::chrono::year(1899) / 12 / 30};

constexpr std::int64_t DayNumber(std::chrono::year_month_day date) {
  return (std::chrono::sys_days(date) - kDayZero).count();
}

constexpr std::int64_t kFirstDay = DayNumber(std::chrono::year(kFirstYear) / 1 / 1);
constexpr std::int64_t kLastDay = DayNumber(std::chrono::year(kLastYear) / 12 / 31);

constexpr std::chrono::year_month_day Calendar(int year, int month, int day) {
  return {std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
          std::chrono::day(static_cast<unsigned>(day))};
}

constexpr bool InRange(int value, int low, int high) {
  return value >= low && value <= high;
}

constexpr bool IsMoment(int year, int month, int day, int hour, int minute, int second) {
  return InRange(year, kFirstYear, kLastYear) && InRange(month, 1, 12) && InRange(day, 1, 31) &&
         Calendar(year, month, day).ok() && InRange(hour, 0, 23) && InRange(minute, 0, 59) &&
         InRange(second, 0, 59);
}

std::int64_t DayOf(std::int64_t seconds) {
  return seconds >= 0 ? seconds / kSecondsOfDay : -((kSecondsOfDay - 1 - seconds) / kSecondsOfDay);
}

int SecondOfDay(std::int64_t seconds) {
  return static_cast<int>(seconds - DayOf(seconds) * kSecondsOfDay);
}

std::chrono::year_month_day DateOf(std::int64_t seconds) {
  return std::chrono::year_month_day(kDayZero + std::chrono::days(DayOf(seconds)));
}

/// The number in the digits from `first` on; negative when one of them is not a digit.
int Digits(const char* first, int count) {
  int number = 0;
  bool valid = true;
  for (int i = 0; i < count; ++i) {
    const int digit = first[i] - '0';
    valid = valid && digit >= 0 && digit <= 9;
    number = number * 10 + digit;
  }
  return valid ? number : -1;
}

void PutDigits(char* out, int count, int number) {
  for (int i = count - 1; i >= 0; --i, number /= 10) out[i] = static_cast<char>('0' + number % 10);
}

std::string Written(int year, int month, int day, int hour, int minute, int second) {
  const auto two = [](int number) {
    return (number >= 0 && number < 10 ? "0" : "") + std::to_string(number);
  };
  std::string text = two(day) + "." + two(month) + "." + std::to_string(year);
  if (hour != 0 || minute != 0 || second != 0) {
    text += " " + two(hour) + ":" + two(minute) + ":" + two(second);
  }
  return text;
}

}  // namespace

DateTime::DateTime(int year, int month, int day, int hour, int minute, int second) {
  if (!IsMoment(year, month, day, hour, minute, second)) {
    throw ValueFailure(kTypeMismatch, Written(year, month, day, hour, minute, second));
  }
  seconds_ =
      DayNumber(Calendar(year, month, day)) * kSecondsOfDay + hour * 3600 + minute * 60 + second;
}

std::optional<DateTime> DateTime::FromIso(std::string_view text) {
  const bool timed = text.size() == 19;
  if ((!timed && text.size() != 10) || text[4] != '-' || text[7] != '-') return std::nullopt;
  const char* at = text.data();
  const int year = Digits(at, 4), month = Digits(at + 5, 2), day = Digits(at + 8, 2);
  int hour = 0, minute = 0, second = 0;
  if (timed) {
    if ((at[10] != ' ' && at[10] != 'T') || at[13] != ':' || at[16] != ':') return std::nullopt;
    hour = Digits(at + 11, 2), minute = Digits(at + 14, 2), second = Digits(at + 17, 2);
  }
  if (!IsMoment(year, month, day, hour, minute, second)) return std::nullopt;
  DateTime result;
  result.seconds_ =
      DayNumber(Calendar(year, month, day)) * kSecondsOfDay + hour * 3600 + minute * 60 + second;
  return result;
}

DateTime DateTime::FromSerial(double serial) {
  // The condition is written so that NaN fails too.
  if (!(serial > static_cast<double>(kFirstDay - 1) &&
        serial < static_cast<double>(kLastDay + 1))) {
    throw ValueFailure(kOverflow);
  }
  const double day = std::trunc(serial);
  DateTime result;
  result.seconds_ =
      static_cast<std::int64_t>(day) * kSecondsOfDay +
      static_cast<std::int64_t>(std::nearbyint(std::fabs(serial - day) * kSecondsOfDay));
  if (DayOf(result.seconds_) > kLastDay) throw ValueFailure(kOverflow);
  return result;
}

int DateTime::Year() const {
  return static_cast<int>(DateOf(seconds_).year());
}

int DateTime::Month() const {
  return static_cast<int>(static_cast<unsigned>(DateOf(seconds_).month()));
}

int DateTime::Day() const {
  return static_cast<int>(static_cast<unsigned>(DateOf(seconds_).day()));
}

int DateTime::Hour() const {
  return SecondOfDay(seconds_) / 3600;
}
int DateTime::Minute() const {
  return SecondOfDay(seconds_) / 60 % 60;
}
int DateTime::Second() const {
  return SecondOfDay(seconds_) % 60;
}

double DateTime::Serial() const {
  const auto day = static_cast<double>(DayOf(seconds_));
  const double fraction = static_cast<double>(SecondOfDay(seconds_)) / kSecondsOfDay;
  return day < 0 ? day - fraction : day + fraction;
}

std::string DateTime::Iso() const {
  char text[20];
  IsoTo(text);
  return std::string(text, 19);
}

void DateTime::IsoTo(char out[20]) const {
  const auto date = DateOf(seconds_);
  const int second = SecondOfDay(seconds_);
  PutDigits(out, 4, static_cast<int>(date.year()));
  out[4] = '-';
  PutDigits(out + 5, 2, static_cast<int>(static_cast<unsigned>(date.month())));
  out[7] = '-';
  PutDigits(out + 8, 2, static_cast<int>(static_cast<unsigned>(date.day())));
  out[10] = ' ';
  PutDigits(out + 11, 2, second / 3600);
  out[13] = ':';
  PutDigits(out + 14, 2, second / 60 % 60);
  out[16] = ':';
  PutDigits(out + 17, 2, second % 60);
  out[19] = '\0';
}

DateTime DateTime::Midnight() const {
  DateTime result;
  result.seconds_ = DayOf(seconds_) * kSecondsOfDay;
  return result;
}

DateTime DateTime::AddMonths(int months) const {
  const auto date = DateOf(seconds_);
  const std::int64_t count = static_cast<std::int64_t>(static_cast<int>(date.year())) * 12 +
                             static_cast<unsigned>(date.month()) - 1 + months;
  if (count < kFirstYear * 12 || count >= (kLastYear + 1) * 12) throw ValueFailure(kOverflow);
  const auto month = std::chrono::year(static_cast<int>(count / 12)) /
                     std::chrono::month(static_cast<unsigned>(count % 12) + 1);
  const std::chrono::day last = (month / std::chrono::last).day();
  DateTime result;
  result.seconds_ = DayNumber(month / (date.day() < last ? date.day() : last)) * kSecondsOfDay +
                    SecondOfDay(seconds_);
  return result;
}

DateTime DateTime::AddDays(int days) const {
  DateTime result;
  result.seconds_ = seconds_ + days * kSecondsOfDay;
  if (DayOf(result.seconds_) < kFirstDay || DayOf(result.seconds_) > kLastDay) {
    throw ValueFailure(kOverflow);
  }
  return result;
}

int DifLuni(const DateTime& a, const DateTime& b) {
  return (b.Year() - a.Year()) * 12 + b.Month() - a.Month();
}

}  // namespace tevra
