// The values that the asset card derives while the user fills it in: rates, shares and dates from a
// method, a duration, a value or a date. No widgets, only numbers.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "engine/Method.h"
#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The degressive coefficients of I_COEFAD, by duration: up to 5, up to 10, above 10 years.
struct Coefficients {
  Value upTo5;
  Value upTo10;
  Value above10;

  /// The coefficient for an asset of so many years without and with moral wear. Throw Failure 94
  /// when it is Null.
  double WithoutWear() const { return upTo5.AsDouble(); }
  double WithWear(double years) const { return (years <= 10 ? upTo10 : above10).AsDouble(); }
};

/// The coefficients of the first row. Throws Failure 3021 when the table is empty.
Coefficients ReadCoefficients(Connection& connection);

/// Called only when a method needs the coefficients.
using CoefficientsReader = std::function<Coefficients()>;

/// The changes made by a step of the card; members that are not set do not change. A step that
/// throws has set the members before the failure.
struct Derived {
  bool realIsNormal = false;   ///< the real duration becomes the normal one
  std::optional<double> real;  ///< real duration, years
  std::optional<double> rate;  ///< rate of the linear phase, a fraction of 1 a year
  std::optional<double> coef;  ///< share of the first phase, a fraction of 1 a year
};

/// a / b. Throws Failure 11 for b = 0.
double Divide(double a, double b);

/// x, the whole years of the linear phase: normal duration / coefficient, rounded to even, 16 bits.
/// Throws Failure 11 and 6.
std::int16_t LinearYears(double years, double coefficient);

/// A method other than the linear one was chosen for an asset of `normal` years. `blocked`: the
/// accelerated method uses `yearsLeft`. Returns false when the method does not allow the duration:
/// the card then shows a message and returns to the linear method. Throws Failure 11, 6 and what
/// the reader throws.
bool PickMethod(Method method, double normal, bool blocked, std::optional<double> yearsLeft,
                const CoefficientsReader& coefficients, Derived& derived);

/// The linear method was chosen; `normal` may still be missing.
void PickLinear(std::optional<double> normal, Derived& derived);

/// A duration was typed: derives rates and real duration from the normal one by the current method.
/// For the method without wear it differs from PickMethod on purpose: the share is a percentage and
/// the rate 1 / years. Returns false and throws like PickMethod.
bool LeaveDuration(Method method, double normal, const CoefficientsReader& coefficients,
                   Derived& derived);

/// The remaining life at the blocking date, as in the two boxes, which do not add up: 19 months are
/// 2 years and 7 months.
struct TimeLeft {
  double years = 0;   ///< rounded to even
  double months = 0;  ///< of an incomplete year
};

/// Throws Failure 6 for more than 16 bits of months.
TimeLeft TimeLeftAt(const DateTime& blocked, const DateTime& end);

/// The blocking box changed: rates for the remaining years. Returns false and throws like
/// PickMethod.
bool Block(Method method, double yearsLeft, const CoefficientsReader& coefficients,
           Derived& derived);

/// "Nu se calculeaza amortizare degresiva .. pentru .. ani!"; `years` as the box shows them.
std::string OutOfRangeText(Method method, const std::string& years);

/// Lei over the rate, 3 decimals; 0 at the rate 0.
double ValueInCurrency(double lei, double rate);

/// Twenty percent of a value, 2 decimals: the part charged to expense directly.
double DirectExpense(double value);

/// The 1st of the next calendar month.
DateTime FirstOfNextMonth(const DateTime& date);

/// `start` plus `years`; a part of a year counts in months, rounded to even.
DateTime EndOfLife(const DateTime& start, double years);

/// `end` moved to the year in which an asset of so many years that began in the year of `start`
/// ends.
DateTime InYearOfEnd(const DateTime& end, const DateTime& start, double years);

}  // namespace tevra
