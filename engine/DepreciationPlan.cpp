#include "engine/DepreciationPlan.h"

#include <cmath>
#include <limits>
#include <string>

#include "engine/Amounts.h"
#include "engine/Method.h"
#include "platform/text/Invariant.h"

namespace tevra {
namespace {

constexpr int kMonths = 12;

// A year of the plan: the input of the formulas.
struct Year {
  int index = 0;        // from 0
  int months = 0;       // months of depreciation in it
  int firstMonths = 0;  // months of the first calendar year
  bool last = false;
};

// The amounts in lei or in currency, carried from year to year.
class Track {
 public:
  Track(const PlanParameters& asset, double base)
      : method_(TraitsOf(MethodOf(asset.TIP_AM))),
        rate_(*asset.COTA_ANUALA),
        coef_(asset.COEF.value_or(0)),
        switch_(asset.AD2.value_or(0)),
        base_(base) {}

  bool IsDepreciated() const { return cumulated_ == base_; }

  PlanAmounts Next(const Year& year) {
    PlanAmounts amounts;
    amounts.toDepreciate = Rounded(year.index == 0 ? base_ : remaining_);
    Depreciate(year, amounts);
    amounts.remaining = Rounded(amounts.toDepreciate - amounts.depreciation);
    if (year.last && amounts.remaining != 0) {
      amounts.depreciation = amounts.toDepreciate;
      amounts.remaining = 0;
      amounts.cumulated = Rounded(base_);
    }
    Invariant(!year.last || amounts.remaining == 0, "ultimul an al planului lasa un rest");
    Invariant(std::isfinite(amounts.cumulated) && std::isfinite(amounts.depreciation),
              "un an al planului nu are valori");
    cumulated_ = amounts.cumulated;
    remaining_ = amounts.remaining;
    return amounts;
  }

 private:
  static double Rounded(double value) { return RoundedAmount(value, "I_PLANAMO"); }

  static void Set(PlanAmounts& amounts, double depreciation, double cumulated) {
    amounts.depreciation = Rounded(depreciation);
    amounts.cumulated = Rounded(cumulated);
  }

  void Depreciate(const Year& year, PlanAmounts& amounts) {
    if (method_.degressive) return Degressive(year, amounts);
    if (method_.usesCoef) return Accelerated(year, amounts);
    Uniform(method_.depreciates ? base_ * rate_ : 0, year, amounts);
  }

  // The same amount for each month of the year.
  void Uniform(double annual, const Year& year, PlanAmounts& amounts) const {
    const double depreciation = (annual / kMonths) * year.months;
    Set(amounts, depreciation, depreciation + cumulated_);
  }

  // The first twelve months are in two calendar years.
  void Accelerated(const Year& year, PlanAmounts& amounts) const {
    const double first = base_ * coef_;
    if (year.index == 0) return Uniform(first, year, amounts);
    if (year.index > 1) return Uniform(first * rate_, year, amounts);
    const double restOfFirst = (first / kMonths) * (kMonths - year.firstMonths);
    const double second = ((first * rate_) / kMonths) * year.firstMonths;
    Set(amounts, restOfFirst + second, restOfFirst + cumulated_ + second);
  }

  // A share of the remaining value until the switch, then equal parts of the value at the switch.
  void Degressive(const Year& year, PlanAmounts& amounts) {
    if (year.index == 0) return Uniform(base_ * coef_, year, amounts);
    if (year.index < switch_) return Uniform(remaining_ * coef_, year, amounts);
    if (year.index > switch_) return Uniform(atSwitch_ * rate_, year, amounts);
    const double before = Rounded(((remaining_ * coef_) / kMonths) * (kMonths - year.firstMonths));
    atSwitch_ = remaining_ - before;
    const double after = ((atSwitch_ * rate_) / kMonths) * year.firstMonths;
    Set(amounts, after + before, after + (before + cumulated_));
  }

  const MethodTraits& method_;
  double rate_;
  double coef_;
  double switch_;
  double base_;
  double cumulated_ = 0;
  double remaining_ = 0;
  double atSwitch_ = 0;
};

// The parameters that every plan reads, even where the asset's state does not use them.
void RequireParameters(const PlanParameters& asset) {
  Need(asset.VAL_CUMP, "VAL_CUMP");
  Need(asset.VALCHELEI, "VALCHELEI");
  Need(asset.VALCHEVAL, "VALCHEVAL");
  Need(asset.COTA_ANUALA, "COTA_ANUALA");
  Need(asset.DRFANI, "DRFANI");
  Need(asset.VAL_BLOCATA, "VAL_BLOCATA");
  Need(asset.VAL_BLOCATA_VAL, "VAL_BLOCATA_VAL");
  Need(asset.DATA_IN_AM, "DATA_IN_AM");
  Need(asset.DATA_SF, "DATA_SF");
}

class Plan {
 public:
  explicit Plan(const PlanParameters& asset)
      : start_(asset.BLOCATA ? asset.DATA_BLOCARE.value_or(DateTime()) : *asset.DATA_IN_AM),
        end_(*asset.DATA_SF),
        last_(LastIndex(asset.BLOCATA ? asset.DRBANI.value_or(0) : *asset.DRFANI)),
        lei_(asset, asset.BLOCATA ? *asset.VAL_BLOCATA : *asset.VAL_CUMP - *asset.VALCHELEI) {
    if (asset.BLOCATA) {
      currency_.emplace(asset, *asset.VAL_BLOCATA_VAL);
    } else if (asset.VAL_CUMP_VAL) {
      currency_.emplace(asset, *asset.VAL_CUMP_VAL - *asset.VALCHEVAL);
    }
  }

  std::vector<PlanYear> Years() {
    std::vector<PlanYear> years;
    for (int index = 0; index <= last_; ++index) {
      if (lei_.IsDepreciated() && (!currency_ || currency_->IsDepreciated())) break;
      const Year year{index, MonthsOf(index), FirstMonths(), index == last_};
      PlanYear& row = years.emplace_back();
      row.year = CalendarYear(index);
      row.lei = lei_.Next(year);
      if (currency_) row.currency = currency_->Next(year);
      InvariantEqual(row.year - years.front().year, index, "anii planului nu se succed");
    }
    return years;
  }

 private:
  double LastIndex(double years) const {
    return years == std::floor(years) ? years : end_.Year() - start_.Year();
  }

  int FirstMonths() const { return kMonths - start_.Month() + 1; }

  int MonthsOf(int index) const {
    if (index == 0) return FirstMonths();
    if (index < last_) return kMonths;
    return (end_.Year() - start_.Year() - index) * kMonths + end_.Month() - 1;
  }

  // The range of the year's field limits a plan that would never end.
  std::int16_t CalendarYear(int index) const {
    const int year = start_.Year() + index;
    if (year > std::numeric_limits<std::int16_t>::max()) throw Failure(kOverflow, "Overflow: AN");
    return static_cast<std::int16_t>(year);
  }

  DateTime start_;
  DateTime end_;
  double last_;
  Track lei_;
  std::optional<Track> currency_;
};

}  // namespace

std::vector<PlanYear> DepreciationPlan(const PlanParameters& asset) {
  RequireParameters(asset);
  return Plan(asset).Years();
}

}  // namespace tevra
