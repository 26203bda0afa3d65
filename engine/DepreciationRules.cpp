#include "engine/DepreciationRules.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <string>

#include "engine/Amounts.h"
#include "platform/text/Invariant.h"

namespace tevra {
namespace {

enum class Variant { kActive, kActiveBlocked, kExitPending, kExitPendingBlocked, kSingle };

// The deliberate differences between the calculations. In all of them BLOCATA determines base and
// start.
struct VariantRules {
  bool linearLessExpense;  // "L": VALCHELEI and VALCHEVAL reduce the base
  bool switchByMonth;      // "A": the whole month of DATA_AMORT belongs to the second phase
  bool writesExpense;      // "A": stores the first-year amount in VALCHELEI and VALCHEVAL
  int extraFirstMonths;    // "N", "M": added to the months of the first phase
  bool countsTwelve;       // "N", "M": DALUNI takes the first phase as 12 months
  bool narrowCounts;       // months are counted in 16 bits
};

constexpr VariantRules kVariants[] = {
    // linearLessExpense, switchByMonth, writesExpense, extraFirstMonths, countsTwelve, narrowCounts
    {true, true, true, 0, false, false},     // kActive
    {false, false, false, 0, false, false},  // kActiveBlocked
    {false, false, false, 1, true, false},   // kExitPending
    {false, false, false, 0, false, false},  // kExitPendingBlocked
    {false, false, false, 0, false, true},   // kSingle
};

const VariantRules& RulesOf(Variant variant) {
  const auto index = static_cast<std::size_t>(variant);
  Invariant(index < std::size(kVariants), "varianta de calcul necunoscuta");
  return kVariants[index];
}

// An asset may have no value in currency; an unknown input gives an unknown result.
struct Money {
  double lei;
  std::optional<double> currency;
};

std::optional<double> Rounded(const std::optional<double>& value, const char* field) {
  if (!value) return std::nullopt;
  return RoundedAmount(*value, field);
}

// Applies a formula to the amounts in lei and in currency.
template <typename Formula>
Money Each(const Money& value, Formula formula) {
  Money result{formula(value.lei), std::nullopt};
  if (value.currency) result.currency = formula(*value.currency);
  return result;
}

Money Less(Money value, const std::optional<double>& lei, const std::optional<double>& currency) {
  if (lei) value.lei -= *lei;
  if (value.currency && currency) *value.currency -= *currency;
  return value;
}

// The test is "is it False?", so a Null counts as blocked.
bool TakenAsBlocked(const AssetParameters& asset) {
  return asset.BLOCATA != false;
}

// But for the rounding of the parts.
bool AddUp(double part, double other, double whole) {
  constexpr double kTraces = 1e-9;
  const double largest = std::max({std::abs(part), std::abs(other), std::abs(whole)});
  return std::abs(part + other - whole) <= 1 + kTraces * largest;
}

// What holds of every result, whatever the asset's parameters are.
void CheckCalculated(const AssetParameters& asset, const DateTime& dataCalcul,
                     const CalculatedFields& fields) {
  const MethodTraits& method = TraitsOf(static_cast<Method>(asset.TIP_AM));
  if (method.method == kNoMethod) return;
  Invariant(!method.depreciates || (fields.DATA_CALCUL == dataCalcul && fields.DALUNI),
            "o imobilizare calculata nu are data calculului");
  Invariant(fields.COTAL_LUNARA && std::isfinite(*fields.COTAL_LUNARA),
            "o imobilizare calculata nu are cota lunara");
  Invariant(fields.VAL_AMOR_CUMULATA && fields.VAL_RAMASA,
            "o imobilizare calculata nu are valorile in lei");
}

class Calculation {
 public:
  Calculation(const AssetParameters& asset, const DateTime& dataCalcul, Variant variant,
              CalculatedFields& fields)
      : asset_(asset),
        dataCalcul_(dataCalcul),
        rules_(RulesOf(variant)),
        method_(TraitsOf(MethodOf(asset.TIP_AM))),
        blocked_(TakenAsBlocked(asset)),
        fields_(fields) {}

  void Run() {
    if (method_.method == kNoMethod) return;
    if (!method_.depreciates) return NoDepreciation();
    fields_.DATA_CALCUL = dataCalcul_;
    if (dataCalcul_ > Need(asset_.DATA_SF, "DATA_SF")) return Ended();
    if (dataCalcul_ < Start()) return NotStarted();
    InLife();
  }

 private:
  const DateTime& Start() const {
    return blocked_ ? Need(asset_.DATA_BLOCARE, "DATA_BLOCARE")
                    : Need(asset_.DATA_IN_AM, "DATA_IN_AM");
  }

  const DateTime& Switch() const { return Need(asset_.DATA_AMORT, "DATA_AMORT"); }

  Money PurchaseValue() const { return {Need(asset_.VAL_CUMP, "VAL_CUMP"), asset_.VAL_CUMP_VAL}; }

  Money Base() const {
    if (!blocked_) return PurchaseValue();
    return {Need(asset_.VAL_BLOCATA, "VAL_BLOCATA"), asset_.VAL_BLOCATA_VAL};
  }

  // What was taken to expenses at once is not depreciated again.
  Money LessExpense(const Money& value) const {
    if (!method_.takesExpense || !rules_.linearLessExpense) return value;
    return Less(value, fields_.VALCHELEI, fields_.VALCHEVAL);
  }

  void NoDepreciation() {
    fields_.COTAL_LUNARA = 0.0;
    SetCumulated({0.0, 0.0});
    SetRemaining(Base());
  }

  // Before the start the purchase value remains, for a blocked asset too.
  void NotStarted() {
    fields_.DALUNI = 0;
    fields_.COTAL_LUNARA = 0.0;
    SetCumulated({0.0, 0.0});
    const bool owned = dataCalcul_ >= Need(asset_.DATA_ACH, "DATA_ACH");
    SetRemaining(owned ? LessExpense(PurchaseValue()) : Money{0.0, 0.0});
  }

  // Removes the remainder that the rounded formulas left over the asset's life.
  void Ended() {
    fields_.DALUNI = Count(DifLuni(Start(), Need(asset_.DATA_SF, "DATA_SF")));
    fields_.COTAL_LUNARA = 0.0;
    SetCumulated(LessExpense(Base()));
    SetRemaining({0.0, 0.0});
  }

  void InLife() {
    if (!method_.usesCoef) {
      Uniform(asset_.COTA_ANUALA, "COTA_ANUALA", LessExpense(Base()));
    } else if (InFirstPhase()) {
      Uniform(asset_.COEF, "COEF", Base());
      if (IsAccelerated() && rules_.writesExpense) SetExpense({0.0, 0.0});
    } else if (IsAccelerated()) {
      AcceleratedSecondPhase();
    } else {
      DegressiveSecondPhase();
    }
  }

  bool IsAccelerated() const { return method_.method == kAccelerated; }

  bool InFirstPhase() const {
    if (IsAccelerated() && rules_.switchByMonth) return DifLuni(dataCalcul_, Switch()) > 0;
    return dataCalcul_ < Switch();
  }

  // One annual rate since the start; the months of the start and of the date count in full.
  void Uniform(const std::optional<double>& annualRate, const char* rateField, const Money& base) {
    const int n = Count(DifLuni(Start(), dataCalcul_) + 1);
    const double rate = SetMonthlyRate(annualRate, rateField);
    fields_.DALUNI = n;
    StoreInLife(base, [=](double value) { return (value * rate) * n; });
  }

  // The second phase depreciates the first-year amount again, not the value that remains after it.
  void AcceleratedSecondPhase() {
    const int n2 = MonthsOfSecondPhase();
    const double rate = SetMonthlyRate(asset_.COTA_ANUALA, "COTA_ANUALA");
    const double coef = Need(asset_.COEF, "COEF");
    fields_.DALUNI = Count(n2 + 12);
    StoreInLife(Base(),
                [=](double value) { return (value * coef) + ((value * coef) * rate) * n2; });
    if (rules_.writesExpense) {
      SetExpense(Each(PurchaseValue(), [=](double value) { return value * coef; }));
    }
  }

  void DegressiveSecondPhase() {
    const int n2 = MonthsOfSecondPhase();
    const int n1 = Count(DifLuni(Start(), Switch()) + rules_.extraFirstMonths);
    const double rate = SetMonthlyRate(asset_.COTA_ANUALA, "COTA_ANUALA");
    const double coef = Need(asset_.COEF, "COEF");
    fields_.DALUNI = Count(n2 + (rules_.countsTwelve ? 12 : n1));
    StoreInLife(Base(), [=](double value) {
      return ((value * coef) / 12) * n1 + ((value * coef) * rate) * n2;
    });
  }

  int MonthsOfSecondPhase() const { return Count(DifLuni(Switch(), dataCalcul_) + 1); }

  int Count(int months) const {
    using Narrow = std::numeric_limits<std::int16_t>;
    if (rules_.narrowCounts && (months < Narrow::min() || months > Narrow::max())) {
      throw Failure(kOverflow, "Overflow: DALUNI");
    }
    return months;
  }

  double SetMonthlyRate(const std::optional<double>& annualRate, const char* field) {
    const double rate = FiniteAmount(Need(annualRate, field) / 12, "COTAL_LUNARA");
    fields_.COTAL_LUNARA = rate;
    return rate;
  }

  template <typename Formula>
  void StoreInLife(const Money& base, Formula cumulated) {
    SetCumulated(Each(base, cumulated));
    SetRemaining(Less(base, fields_.VAL_AMOR_CUMULATA, fields_.VAL_AMOR_CUMULATA_VAL));
    Invariant(AddUp(*fields_.VAL_AMOR_CUMULATA, *fields_.VAL_RAMASA, base.lei),
              "amortizarea cumulata si valoarea ramasa nu dau valoarea de amortizat");
  }

  void SetCumulated(const Money& value) {
    fields_.VAL_AMOR_CUMULATA = RoundedAmount(value.lei, "VAL_AMOR_CUMULATA");
    fields_.VAL_AMOR_CUMULATA_VAL = Rounded(value.currency, "VAL_AMOR_CUMULATA_VAL");
  }

  void SetRemaining(const Money& value) {
    fields_.VAL_RAMASA = RoundedAmount(value.lei, "VAL_RAMASA");
    fields_.VAL_RAMASA_VAL = Rounded(value.currency, "VAL_RAMASA_VAL");
  }

  void SetExpense(const Money& value) {
    fields_.VALCHELEI = RoundedAmount(value.lei, "VALCHELEI");
    fields_.VALCHEVAL = Rounded(value.currency, "VALCHEVAL");
  }

  const AssetParameters& asset_;
  const DateTime& dataCalcul_;
  const VariantRules& rules_;
  const MethodTraits& method_;
  const bool blocked_;
  CalculatedFields& fields_;
};

Variant MonthlyVariant(Presence presence, bool blocked) {
  if (presence == Presence::kActive) return blocked ? Variant::kActiveBlocked : Variant::kActive;
  return blocked ? Variant::kExitPendingBlocked : Variant::kExitPending;
}

void ClearGone(CalculatedFields& fields) {
  fields.VAL_AMOR_CUMULATA = 0.0;
  fields.VAL_AMOR_CUMULATA_VAL = 0.0;
  fields.VAL_RAMASA = 0.0;
  fields.VAL_RAMASA_VAL = 0.0;
  fields.COTAL_LUNARA = 0.0;
}

}  // namespace

Presence PresenceAt(const AssetParameters& asset, const DateTime& dataCalcul) {
  if (!asset.IESIRE) return Presence::kActive;
  return dataCalcul >= Need(asset.DATA_IESIRE, "DATA_IESIRE") ? Presence::kGone
                                                              : Presence::kExitPending;
}

void CalculateForMonth(const AssetParameters& asset, const DateTime& dataCalcul,
                       CalculatedFields& fields) {
  const Presence presence = PresenceAt(asset, dataCalcul);
  if (presence == Presence::kGone) return ClearGone(fields);
  CalculatedFields result = fields;
  const Variant variant = MonthlyVariant(presence, TakenAsBlocked(asset));
  Calculation(asset, dataCalcul, variant, result).Run();
  CheckCalculated(asset, dataCalcul, result);
  fields = result;
}

void CalculateSingle(const AssetParameters& asset, const DateTime& dataCalcul,
                     CalculatedFields& fields) {
  CalculatedFields result = fields;
  Calculation(asset, dataCalcul, Variant::kSingle, result).Run();
  CheckCalculated(asset, dataCalcul, result);
  fields = result;
}

}  // namespace tevra
