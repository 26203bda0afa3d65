#include "engine/PlanAmortizare.h"

#include "engine/DepreciationPlan.h"
#include "engine/DepreciationRules.h"
#include "platform/data/Command.h"
#include "platform/data/Recordset.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "platform/text/FailureText.h"
#include "platform/text/Invariant.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr const char* kReadAsset =
    "Select NRCRT, DENUMIRE, VAL_CUMP, VAL_CUMP_VAL, COTA_ANUALA, COEF, DATA_PF, DATA_IN_AM, "
    "DATA_SF, DRFANI, TIP_AM, AD2, BLOCATA, DATA_BLOCARE, DRBANI, VAL_BLOCATA, VAL_BLOCATA_VAL, "
    "VALCHELEI, VALCHEVAL FROM I_IMO WHERE NRCRT = Clng(?)";

constexpr const char* kAddYear =
    "INSERT INTO I_PLANAMO (ID, DENUMIRE, AN, VALAMO, AMO_AN, VALAMOCUM, VALRAMASA, VALAMO_VAL, "
    "AMO_AN_VAL, VALAMOCUM_VAL, VALRAMASA_VAL) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

PlanParameters Parameters(const Recordset& row) {
  const auto number = [&](const char* field) -> std::optional<double> {
    const Value& value = row.Get(field);
    if (value.IsNull()) return std::nullopt;
    return value.AsDouble();
  };
  const auto date = [&](const char* field) -> std::optional<DateTime> {
    const Value& value = row.Get(field);
    if (value.IsNull()) return std::nullopt;
    return value.AsDateTime();
  };
  PlanParameters asset;
  asset.TIP_AM = MethodCode(row.Get("TIP_AM").TextOrEmpty());
  asset.BLOCATA = !row.Get("BLOCATA").IsNull() && row.Get("BLOCATA").AsBool();
  asset.DATA_IN_AM = date("DATA_IN_AM");
  asset.DATA_SF = date("DATA_SF");
  asset.DATA_BLOCARE = date("DATA_BLOCARE");
  asset.VAL_CUMP = number("VAL_CUMP");
  asset.VAL_CUMP_VAL = number("VAL_CUMP_VAL");
  asset.VALCHELEI = number("VALCHELEI");
  asset.VALCHEVAL = number("VALCHEVAL");
  asset.VAL_BLOCATA = number("VAL_BLOCATA");
  asset.VAL_BLOCATA_VAL = number("VAL_BLOCATA_VAL");
  asset.COTA_ANUALA = number("COTA_ANUALA");
  asset.COEF = number("COEF");
  asset.AD2 = number("AD2");
  asset.DRFANI = number("DRFANI");
  asset.DRBANI = number("DRBANI");
  return asset;
}

void Append(Values& row, const std::optional<PlanAmounts>& amounts) {
  if (!amounts) {
    row.resize(row.size() + 4);
    return;
  }
  for (const double amount :
       {amounts->toDepreciate, amounts->depreciation, amounts->cumulated, amounts->remaining}) {
    row.emplace_back(amount);
  }
}

}  // namespace

const char* PlanRefusal(const Value& iesire, const Value& tipAm) {
  if (!iesire.IsNull() && iesire.AsBool()) return "Aceasta imobilizare  a fost vanduta / casata !";
  if (MethodOf(tipAm.TextOrEmpty()) == kNoDepreciation)
    return "Aceasta imobilizare este fara amortizare";
  return nullptr;
}

int MakePlan(Connection& connection, const std::string& nrcrt) {
  Transaction transaction(connection);
  connection.Execute("Delete * from I_PLANAMO");
  const Recordset asset = connection.OpenRecordset(kReadAsset, {nrcrt});
  if (asset.Eof()) throw Failure(kNoCurrentRecord, FailureText(kNoCurrentRecord));
  const std::vector<PlanYear> years = DepreciationPlan(Parameters(asset));
  Command add(connection, kAddYear);
  for (const PlanYear& year : years) {
    Values row{asset.Get("NRCRT"), asset.Get("DENUMIRE"), int{year.year}};
    Append(row, year.lei);
    Append(row, year.currency);
    add.Execute(row);
  }
  InvariantEqual(connection.QueryValue("SELECT COUNT(*) FROM I_PLANAMO").Whole(),
                 static_cast<std::int64_t>(years.size()), "ani scrisi in plan");
  transaction.Commit();
  return static_cast<int>(years.size());
}

void PlanAmortizare(const std::string& nrcrt) {
  try {
    Connection connection(CurrentSession().connectionString);
    MakePlan(connection, nrcrt);
  } catch (const std::exception&) {
    LogCaughtFailure({"PlanAmortizare", "Module", "Module3"});
    MsgBoxEx("Eroare la salvare !", kCritical, "Salvare plan amortizare");
  }
}

}  // namespace tevra
