#include "register/AssetSave.h"

#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

const DateTime kNewCatalogue(2005, 1, 1);

/// Collects the fields of one row in their order. It has what new and changed assets share; the two
/// functions after it have the differences.
class RowWriter {
 public:
  RowWriter(const AssetCard& card, const Coefficients& coefficients, const DateTime& today)
      : card_(card), coefficients_(coefficients), today_(today), real_(card.number[kRealYears]) {}

  AssetRow Take() { return std::move(row_); }

  void Set(const char* field, const Value& value) { row_.fields.emplace_back(field, value); }

  bool IsEmpty(number::Place box) const { return card_.number[box].IsNull(); }

  bool IsNumber(number::Place box) const { return !IsEmpty(box) && !card_.number[box].IsText(); }

  double Number(number::Place box) const {
    const Value& value = box == kRealYears ? real_ : card_.number[box];
    if (value.IsNull()) throw Failure(kTypeMismatch, "Type mismatch");
    return value.AsDouble();
  }

  double NumberOrZero(number::Place box) const { return IsEmpty(box) ? 0 : Number(box); }

  const Value& AsItStands(number::Place box) const {
    return box == kRealYears ? real_ : card_.number[box];
  }

  const MethodTraits& Traits() const { return TraitsOf(MethodOf(card_.text[kMethod])); }
  Method Chosen() const { return Traits().method; }

  /// The fields of the asset itself, up to the user.
  void WriteIdentity() {
    static constexpr const char* kFields[] = {"DENUMIRE", "COD_CC",       "COD_LOC",
                                              "DOCUMENT", "COD_FURNIZOR", "COD_TVA_CUMP",
                                              "CONT",     "TIP_AM",       "OBS1"};
    Set("COD", TextOrNull(card_.text[kCode]));
    Set(today_ >= kNewCatalogue ? "COD_GR_NOU" : "COD_GR", TextOrNull(card_.text[kGroup]));
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
      Set(kFields[i], TextOrNull(card_.text[kName + i]));
    }
  }

  void WriteRates() {
    Set("COTA_ANUALA", AsItStands(kRate));
    Set("COTAL_LUNARA", Number(kRate) / 12);
    Set("GRAD_U", AsItStands(kUse));
    Set("DATA_ACH", card_.date[kBought].Midnight());
    Set("DATA_PF", card_.date[kInService].Midnight());
  }

  /// `isNew`: the real duration is written under every method, in months too.
  void WriteMethod(bool isNew) {
    const DateTime start = Date(Chosen() == kNoDepreciation ? kBought : kStart);
    std::int16_t linear = 0;
    std::int16_t degressive = 0;
    if (Chosen() == kWithoutWear) {
      linear = LinearYears(Number(kNormalYears), coefficients_.WithoutWear());
      degressive = CInt(Number(kNormalYears) - linear);
    }
    if (Chosen() == kWithWear) {
      linear = LinearYears(Number(kNormalYears), coefficients_.WithWear(Number(kNormalYears)));
      real_ = Number(kNormalYears) - linear;
      row_.real = Number(kRealYears);
      degressive = CInt(Number(kRealYears) - linear);
    }
    if (isNew || Chosen() != kNoDepreciation) Set("DRFANI", AsItStands(kRealYears));
    if (isNew) Set("DRFLUNI", Number(kRealYears) * 12);
    const bool phases = Traits().degressive;
    if (Traits().usesCoef) Set("COEF", AsItStands(kCoef));
    if (phases) {
      Set("AD1", linear);
      Set("AD2", degressive);
    }
    Set("DATA_IN_AM", start);
    const int first = Chosen() == kAccelerated ? 12 : phases ? 12 * degressive : 0;
    Set("DATA_AMORT", start.AddMonths(first));
  }

  void WriteDates() {
    Set("DATA_SF", Date(kEnd));
    Set("DATA_CALCUL", today_);
    Set("DALUNI", MonthsSoFar());
  }

  int MonthsSoFar() const { return DifLuni(card_.date[kStart], today_); }

  /// `decimals` of the blocked value in currency.
  void WriteBlocking(int decimals) {
    Set("BLOCATA", Value::YesNo(card_.blocked));
    if (!card_.blocked) return;
    const DateTime picked = card_.date[kBlockedFrom];
    const DateTime from(picked.Year(), picked.Month(), 1);
    row_.blocking = from;
    Set("DATA_BLOCARE", from);
    Set("VAL_BLOCATA", Round0(Number(kBlockedValue)));
    Set("VAL_BLOCATA_VAL",
        IsEmpty(kForeignValue) ? 0 : RoundTo(NumberOrZero(kBlockedForeignValue), decimals));
    WriteYearsLeft(from);
  }

 private:
  DateTime Date(date::Place box) const { return card_.date[box].Midnight(); }

  // The method's fields again, for the remaining years.
  void WriteYearsLeft(const DateTime& from) {
    const bool wear = Chosen() == kWithWear;
    const bool phases = Traits().degressive;
    int first = Chosen() == kAccelerated ? 12 : 0;
    if (phases) {
      const double left = Number(kYearsLeft);
      const std::int16_t linear =
          LinearYears(left, wear ? coefficients_.WithWear(left) : coefficients_.WithoutWear());
      const double degressive = wear ? left - linear - linear : left - linear;
      Set("AD1", linear);
      Set("AD2", degressive);
      Set("DRBANI", wear ? Value(left - linear) : AsItStands(kYearsLeft));
      Set("COEF", AsItStands(kCoef));
      first = CLng(12 * degressive);
    } else {
      Set("DRBANI", AsItStands(kYearsLeft));
    }
    Set("COTA_ANUALA", AsItStands(kRate));
    Set("DATA_AMORT", from.AddMonths(first));
  }

  const AssetCard& card_;
  const Coefficients& coefficients_;
  DateTime today_;
  Value real_;
  AssetRow row_;
};

// The cumulated depreciation starts at 0. Fields that are not written get the table's defaults.
void WriteStart(RowWriter& row) {
  const double value = row.Number(kValue);
  const bool foreign = row.IsNumber(kForeignValue);
  const bool linear = row.Traits().takesExpense;
  row.Set("VAL_AMOR_CUMULATA", 0);
  row.Set("VAL_RAMASA", Round0(linear ? value - row.NumberOrZero(kExpensed) : value));
  if (!foreign) {
    row.Set("VAL_AMOR_CUMULATA_VAL", 0);
    row.Set("VAL_RAMASA_VAL", 0);
  } else if (linear) {
    row.Set("VAL_RAMASA_VAL",
            Round0(row.Number(kForeignValue) - row.NumberOrZero(kExpensedForeign)));
  } else if (row.Chosen() == kNoDepreciation) {
    row.Set("VAL_AMOR_CUMULATA_VAL", 0);
    row.Set("VAL_RAMASA_VAL", Round0(row.Number(kForeignValue)));
  }
}

struct SoFar {
  double depreciated;
  double left;
};

// Uses only the rate of the linear phase, for all months; the part charged to expense is not
// depreciated.
SoFar Estimate(const RowWriter& row, double value, double expensed) {
  if (row.Chosen() == kNoDepreciation) return {0, Round0(value)};
  const double base = row.Traits().takesExpense && expensed != 0 ? value - expensed : value;
  const double depreciated = base * row.Number(kRate) / 12 * row.MonthsSoFar();
  return {Round0(depreciated), Round0(base - depreciated)};
}

void WriteEstimate(RowWriter& row) {
  const SoFar lei = Estimate(row, row.Number(kValue), row.NumberOrZero(kExpensed));
  row.Set("VAL_AMOR_CUMULATA", lei.depreciated);
  row.Set("VAL_RAMASA", lei.left);
  const SoFar foreign =
      Estimate(row, row.NumberOrZero(kForeignValue), row.NumberOrZero(kExpensedForeign));
  row.Set("VAL_AMOR_CUMULATA_VAL", foreign.depreciated);
  row.Set("VAL_RAMASA_VAL", foreign.left);
}

void WriteRow(Recordset& rows, const AssetRow& row) {
  for (const auto& [field, value] : row.fields) rows.Set(field, value);
  rows.Update();
}

}  // namespace

AssetRow NewAssetRow(const AssetCard& card, const Coefficients& coefficients, const DateTime& today,
                     const std::string& user) {
  RowWriter row(card, coefficients, today);
  row.WriteIdentity();
  row.Set("UTILIZATOR", user);
  row.Set("VAL_CUMP", Round0(row.Number(kValue)));
  row.Set("CURS", row.NumberOrZero(kExchangeRate));
  row.Set("VAL_CUMP_VAL", RoundTo(row.NumberOrZero(kForeignValue), 3));
  row.Set("VALCHELEI", RoundTo(row.NumberOrZero(kExpensed), 2));
  row.Set("VALCHEVAL", RoundTo(row.NumberOrZero(kExpensedForeign), 2));
  row.Set("DNFANI", row.AsItStands(kNormalYears));
  row.WriteRates();
  row.WriteMethod(true);
  WriteStart(row);
  row.WriteDates();
  row.WriteBlocking(3);
  return row.Take();
}

AssetRow ChangedAssetRow(const AssetCard& card, const Coefficients& coefficients,
                         const DateTime& today) {
  RowWriter row(card, coefficients, today);
  row.WriteIdentity();
  row.Set("VALCHELEI", row.NumberOrZero(kExpensed));
  row.Set("VALCHEVAL", row.NumberOrZero(kExpensedForeign));
  row.Set("VAL_CUMP", Round0(row.Number(kValue)));
  row.Set("CURS", row.NumberOrZero(kExchangeRate));
  row.Set("VAL_CUMP_VAL", row.NumberOrZero(kForeignValue));
  row.Set("DNFANI", row.AsItStands(kNormalYears));
  row.Set("DRFLUNI", row.Number(kRealYears) * 12);
  row.WriteRates();
  row.WriteMethod(false);
  WriteEstimate(row);
  row.WriteDates();
  row.WriteBlocking(0);
  return row.Take();
}

AssetRow pAdaugaImobilizare(const AssetCard& card) {
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  const Coefficients coefficients = ReadCoefficients(connection);
  const AssetRow row = NewAssetRow(card, coefficients, clock::Today(), CurrentSession().userName);
  Recordset rows = connection.OpenRecordset("Select * from I_IMO where 1 = 0");
  rows.AddNew();
  WriteRow(rows, row);
  transaction.Commit();
  return row;
}

AssetRow pModificaImobilizare(const AssetCard& card, std::int32_t nrCrt) {
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  const Coefficients coefficients = ReadCoefficients(connection);
  const AssetRow row = ChangedAssetRow(card, coefficients, clock::Today());
  Recordset rows = connection.OpenRecordset("Select * from I_IMO where NRCRT = ?", {nrCrt});
  WriteRow(rows, row);
  transaction.Commit();
  return row;
}

}  // namespace tevra
