// What the asset card derives while the user moves through it: from a method, a duration, a value
// or a date to the rates, shares and dates that follow. Numbers in, numbers out.
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

  /// The one for an asset without moral wear, and with it of so many years. Throw Failure 94 for
  /// one that is Null.
  double WithoutWear() const { return upTo5.AsDouble(); }
  double WithWear(double years) const { return (years <= 10 ? upTo10 : above10).AsDouble(); }
};

/// The coefficients of the first row. Throws Failure 3021 when the table is empty.
Coefficients ReadCoefficients(Connection& connection);

/// Asked only where a method needs them.
using CoefficientsReader = std::function<Coefficients()>;

/// What a step of the card changes; what is not set stays as it was. A step that throws has set
/// what came before.
struct Derived {
  bool realIsNormal = false;   ///< the real duration takes over the normal one
  std::optional<double> real;  ///< real duration, years
  std::optional<double> rate;  ///< rate of the linear phase, a fraction of 1 a year
  std::optional<double> coef;  ///< share of the first phase, a fraction of 1 a year
};

/// a / b. Throws Failure 11 for b = 0.
double Divide(double a, double b);

/// x, the whole years of the linear phase, by a normal duration and a coefficient: rounded to even,
/// 16 bits. Throws Failure 11 and 6.
std::int16_t LinearYears(double years, double coefficient);

/// A method other than the linear one is picked for an asset of `normal` years. `blocked`: over the
/// `yearsLeft` where the method looks at them (accelerated). False when the method is not for such
/// a duration: the card says so and falls back to the linear one. Throws Failure 11, 6 and what the
/// reader throws.
bool PickMethod(Method method, double normal, bool blocked, std::optional<double> yearsLeft,
                const CoefficientsReader& coefficients, Derived& derived);

/// The linear method is picked; `normal` may still be missing.
void PickLinear(std::optional<double> normal, Derived& derived);

/// A duration was typed: rates and real duration follow the normal one under the method in force.
/// Differs from PickMethod on purpose under "without wear": the share becomes a percentage and the
/// rate 1 / years. False and throws as PickMethod.
bool LeaveDuration(Method method, double normal, const CoefficientsReader& coefficients,
                   Derived& derived);

/// What is left of the life at the blocking date, in the two boxes that may disagree: 19 months are
/// 2 years and 7 months.
struct TimeLeft {
  double years = 0;   ///< rounded to even
  double months = 0;  ///< of an incomplete year
};

/// Throws Failure 6 for more than 16 bits of months.
TimeLeft TimeLeftAt(const DateTime& blocked, const DateTime& end);

/// The blocking box changed: rates over the years left. False and throws as PickMethod.
bool Block(Method method, double yearsLeft, const CoefficientsReader& coefficients,
           Derived& derived);

/// "Nu se calculeaza amortizare degresiva .. pentru .. ani!"; `years` as the box shows them.
std::string OutOfRangeText(Method method, const std::string& years);

/// Lei over the rate, 3 decimals; 0 at the rate 0.
double ValueInCurrency(double lei, double rate);

/// Twenty percent of a value, 2 decimals: what goes into expense directly.
double DirectExpense(double value);

/// A calendar month later, on its 1st.
DateTime FirstOfNextMonth(const DateTime& date);

/// `start` and so many years on; parts of a year by months, rounded to even.
DateTime EndOfLife(const DateTime& start, double years);

/// `end` in the year in which an asset of so many years ends that began in the year of `start`.
DateTime InYearOfEnd(const DateTime& end, const DateTime& start, double years);

}  // namespace tevra
