// A calendar date with a time of day, to the second, without time zone: the value of a date field.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tevra {

/// A date from 01.01.0100 to 31.12.9999; the time of day is 00:00 unless given.
class DateTime {
 public:
  /// Day 0 of the serial numbers: 30.12.1899 00:00.
  DateTime() = default;

  /// Throws Failure 13 when there is no such day or time.
  DateTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

  /// Reads "2006-12-31" or "2006-12-31 10:20:30" ("T" for the blank too); nothing else.
  static std::optional<DateTime> FromIso(std::string_view text);

  /// From a serial day number: 38353 is 01.01.2005, the fraction is the time of day, rounded to a
  /// second. Before day 0 the fraction still counts forward from midnight: -1.25 is 29.12.1899
  /// 06:00. Throws Failure 6 outside the calendar.
  static DateTime FromSerial(double serial);

  int Year() const;
  int Month() const;
  int Day() const;
  int Hour() const;
  int Minute() const;
  int Second() const;

  /// The serial day number, with the time of day as its fraction.
  double Serial() const;

  /// "2006-12-31 00:00:00", the form in which the company file keeps a date.
  std::string Iso() const;

  /// The same into the caller's buffer, with a closing NUL.
  void IsoTo(char out[20]) const;

  /// The same day at 00:00.
  DateTime Midnight() const;

  /// The same day and time `months` later (earlier if negative); a day that the month lacks becomes
  /// its last day. Throws Failure 6 outside the calendar.
  DateTime AddMonths(int months) const;

  /// `days` later. Throws Failure 6 outside the calendar.
  DateTime AddDays(int days) const;

  auto operator<=>(const DateTime&) const = default;  // NOLINT(modernize-use-nullptr)

 private:
  std::int64_t seconds_ = 0;  // from 30.12.1899 00:00
};

/// The number of month boundaries from `a` to `b`; the days do not count. Negative when `b` is in
/// an earlier month.
int DifLuni(const DateTime& a, const DateTime& b);

}  // namespace tevra
