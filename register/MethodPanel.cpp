#include "register/MethodPanel.h"

#include "platform/data/Recordset.h"
#include "platform/text/Numbers.h"

namespace tevra {

namespace {

constexpr double kFirstYear = 100.0 / 2 / 100;

void NothingLeft(Derived& derived) {
  derived.rate = 0;
  derived.coef = 0;
}

double RateOrNone(double linearYears) {
  return linearYears < 1 ? 0 : 1 / linearYears;
}

// Moral wear shortens the life by the years of the linear phase.
void DeriveWithWear(double normal, double linearYears, double percent, Derived& derived) {
  derived.real = normal - linearYears;
  derived.rate = Divide(1, linearYears);
  derived.coef = percent / 100;
}

}  // namespace

Coefficients ReadCoefficients(Connection& connection) {
  const Recordset row = connection.OpenRecordset("Select coef1,coef2,coef3 from I_COEFAD ");
  return {row.Get(0), row.Get(1), row.Get(2)};
}

double Divide(double a, double b) {
  if (b == 0) throw Failure(kDivisionByZero, "Division by zero");
  return a / b;
}

std::int16_t LinearYears(double years, double coefficient) {
  return CInt(Round0(Divide(years, coefficient)));
}

void PickLinear(std::optional<double> normal, Derived& derived) {
  if (normal) derived.rate = *normal <= 0 ? 0 : 1 / *normal;
  derived.realIsNormal = true;
}

bool PickMethod(Method method, double normal, bool blocked, std::optional<double> yearsLeft,
                const CoefficientsReader& coefficients, Derived& derived) {
  switch (method) {
    case kAccelerated:
      derived.realIsNormal = true;
      if (!blocked) {
        derived.rate = normal <= 0 ? 0 : Divide(1, normal - 1);
      } else if (!yearsLeft) {
        derived.rate = 0;
      } else if (*yearsLeft > 0) {
        derived.rate = Divide(1, *yearsLeft - 1);
      }
      derived.coef = kFirstYear;
      return true;
    case kWithWear: {
      if (normal <= 0) {
        NothingLeft(derived);
        derived.realIsNormal = true;
        return true;
      }
      if (!AllowsYears(TraitsOf(method), normal)) return false;
      const double coefficient = coefficients().WithWear(normal);
      DeriveWithWear(normal, LinearYears(normal, coefficient), coefficient * 100 / normal, derived);
      return true;
    }
    case kWithoutWear: {
      if (normal <= 0) {
        NothingLeft(derived);
        return true;
      }
      if (!AllowsYears(TraitsOf(method), normal)) return false;
      const double coefficient = coefficients().WithoutWear();
      derived.realIsNormal = true;
      derived.rate = RateOrNone(LinearYears(normal, coefficient));
      derived.coef = coefficient * 100 / normal / 100;
      return true;
    }
    case kNoDepreciation:
      derived.rate = 0;
      return true;
    default:
      PickLinear(normal, derived);
      return true;
  }
}

bool LeaveDuration(Method method, double normal, const CoefficientsReader& coefficients,
                   Derived& derived) {
  if (normal <= 0) {
    derived.real = 0;
    NothingLeft(derived);
    return true;
  }
  switch (method) {
    case kLinear:
      derived.real = normal;
      derived.rate = 1 / normal;
      return true;
    case kAccelerated:
      derived.real = normal;
      derived.rate = Divide(1, normal - 1);
      return true;
    case kWithWear: {
      if (!AllowsYears(TraitsOf(method), normal)) return false;
      const double percent = coefficients().WithWear(normal) * 100 / normal;
      DeriveWithWear(normal, LinearYears(100, percent), percent, derived);
      return true;
    }
    case kWithoutWear:
      if (!AllowsYears(TraitsOf(method), normal)) return false;
      derived.real = normal;
      derived.coef = 100 / normal * coefficients().WithoutWear();
      derived.rate = 1 / normal;
      return true;
    case kNoDepreciation:
      derived.real = normal;
      derived.rate = 0;
      return true;
    default:
      return true;
  }
}

TimeLeft TimeLeftAt(const DateTime& blocked, const DateTime& end) {
  const std::int16_t months = CInt(DifLuni(blocked, end));
  return {Round0(months / 12.0), static_cast<double>(months % 12)};
}

bool Block(Method method, double yearsLeft, const CoefficientsReader& coefficients,
           Derived& derived) {
  const bool over = yearsLeft <= 0;
  switch (method) {
    case kLinear:
      derived.rate = over ? 0 : 1 / yearsLeft;
      return true;
    case kAccelerated:
      derived.rate = over ? 0 : Divide(1, yearsLeft - 1);
      derived.coef = kFirstYear;
      return true;
    case kWithWear:
    case kWithoutWear: {
      if (over) {
        NothingLeft(derived);
        return true;
      }
      if (!AllowsYears(TraitsOf(method), yearsLeft)) return false;
      const Coefficients read = coefficients();
      const double coefficient =
          method == kWithWear ? read.WithWear(yearsLeft) : read.WithoutWear();
      const std::int16_t linearYears = LinearYears(yearsLeft, coefficient);
      derived.rate = method == kWithWear ? Divide(1, linearYears) : RateOrNone(linearYears);
      derived.coef = coefficient / yearsLeft;
      return true;
    }
    case kNoDepreciation:
      derived.rate = 0;
      return true;
    default:
      return true;
  }
}

std::string OutOfRangeText(Method method, const std::string& years) {
  return std::string("Nu se calculeaza amortizare degresiva ") + TraitsOf(method).wear +
         " uzura pentru " + years + " ani!";
}

double ValueInCurrency(double lei, double rate) {
  return rate == 0 ? 0 : RoundTo(lei / rate, 3);
}

double DirectExpense(double value) {
  return RoundTo(value * 0.2, 2);
}

DateTime FirstOfNextMonth(const DateTime& date) {
  const DateTime later = date.AddMonths(1);
  return {later.Year(), later.Month(), 1};
}

DateTime EndOfLife(const DateTime& start, double years) {
  return start.AddMonths(CLng(12 * years));
}

DateTime InYearOfEnd(const DateTime& end, const DateTime& start, double years) {
  return end.AddMonths(12 * (CInt(start.Year() + years) - end.Year()));
}

}  // namespace tevra
