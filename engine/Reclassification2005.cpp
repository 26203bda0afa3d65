#include "engine/Reclassification2005.h"

#include "platform/data/Recordset.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "platform/text/FailureText.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr int kMonths = 12;

constexpr const char* kRemaining =
    "SELECT I_CLASIFICARE.COD_GR, I_CLASIFICARE.DURNOR, I_CLASIFICARE.DURNOR_NOU AS DURNOR_NOU, "
    "I_IMO.DENUMIRE, I_IMO.TIP_AM, I_IMO.COEF, I_IMO.DATA_SF, I_IMO.DATA_IN_AM, I_IMO.DNFANI, "
    "I_IMO.DRFANI,I_IMO.DRBLUNI, I_IMO.DRFLUNI, I_IMO.DALUNI, I_IMO.DATA_SF, I_IMO.VAL_CUMP, "
    "I_IMO.VAL_AMOR_CUMULATA, I_IMO.VAL_RAMASA, I_IMO.VAL_RAMASA_VAL,I_IMO.COTA_ANUALA, "
    "I_IMO.COTAL_LUNARA, I_IMO.DRBANI,I_IMO.VAL_BLOCATA, I_IMO.VAL_BLOCATA_VAL, "
    "I_IMO.DATA_BLOCARE, I_IMO.IESIRE,I_IMO.BLOCATA, I_IMO.DATA_CALCUL "
    "FROM I_CLASIFICARE INNER JOIN I_IMO ON I_CLASIFICARE.COD_GR = I_IMO.COD_GR "
    "WHERE (((I_IMO.VAL_RAMASA)>0))";

void Prepare(const BeforeWriting& prepare) {
  if (prepare) prepare();
}

double NumberOrZero(const Value& value) {
  return Nz(value).AsDouble();
}

// Why the asset of the current row cannot be restarted; empty when it can. An asset that was never
// calculated has no remaining value to go on from.
std::string RefusalOfRow(const Recordset& asset) {
  const std::string calculated = asset.Get("DATA_CALCUL").TextOrEmpty();
  if (Right(calculated, 7) != "12.2004") {
    return "Pentru a face Recalcul la 01.01.2005, Data de Calcul trebuie sa fie 31.12.2004";
  }
  const Value& duration = asset.Get("DURNOR_NOU");
  if (!duration.IsNull() && duration.AsDouble() == 0) {
    return "Va rog stabiliti durata noua de amortizare.";
  }
  return {};
}

// False at the end, and at an asset that cannot be restarted, which `restart` then tells.
bool IsReady(const Recordset& assets, Restart& restart) {
  if (assets.Eof()) return false;
  restart.refusal = RefusalOfRow(assets);
  if (restart.refusal.empty()) return true;
  restart.asset = assets.Get("DENUMIRE").TextOrEmpty();
  return false;
}

// The months of the new normal duration that correspond to the share of the old life not yet used.
int RemainingMonths(const Recordset& asset) {
  const double used = NumberOrZero(asset.Get("DALUNI"));
  const double whole = NumberOrZero(asset.Get("DRFLUNI"));
  if (whole == 0) throw ValueFailure(kDivisionByZero);
  const int newMonths = CLng(NumberOrZero(asset.Get("DURNOR_NOU")) * kMonths);
  return CLng(Round0((1 - used / whole) * newMonths));
}

void Write(Recordset& asset) {
  const int months = RemainingMonths(asset);
  const DateTime start(2005, 1, 1);
  const double years = static_cast<double>(months) / kMonths;
  asset.Set("VAL_BLOCATA", asset.Get("VAL_RAMASA"));
  asset.Set("VAL_BLOCATA_VAL", asset.Get("VAL_RAMASA_VAL"));
  asset.Set("DATA_BLOCARE", start);
  asset.Set("DATA_SF", start.AddMonths(months));
  asset.Set("BLOCATA", Value::YesNo(true));
  asset.Set("DRBANI", years);
  asset.Set("DRBLUNI", months);
  const double rate = years > 0 ? 1 / years : 0;
  asset.Set("COTA_ANUALA", rate);
  if (years > 0) asset.Set("COTAL_LUNARA", rate / kMonths);
  asset.Update();
}

void RestartRow(Recordset& asset) {
  try {
    Write(asset);
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), failure.Description(), asset.Get("DENUMIRE").TextOrEmpty());
  }
}

// Keeps what was done before a failure, which is the one to tell.
void CommitIfPossible(Transaction& transaction) {
  try {
    transaction.Commit();
  } catch (const Failure&) {
  }
}

template <typename Work>
void ShowFailureOf(Procedure procedure, Work work) {
  try {
    work(procedure.line);
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(procedure), procedure);
  }
}

}  // namespace

std::int64_t AssociateNewCodes(Connection& company) {
  Transaction transaction(company);
  const std::int64_t assets = company.Execute(
      "UPDATE I_CLASIFICARE INNER JOIN I_IMO ON I_CLASIFICARE.COD_GR = I_IMO.COD_GR SET "
      "I_IMO.COD_GR_NOU = [I_CLASIFICARE].[COD_GR_NOU]");
  transaction.Commit();
  return assets;
}

std::int64_t TakeLowerLimits(Connection& company) {
  Transaction transaction(company);
  const std::int64_t codes =
      company.Execute("Update I_CLASIFICARE Set DURNOR_NOU = LIM_INF WHERE LIM_INF IS NOT NULL");
  transaction.Commit();
  return codes;
}

Restart RestartAt2005(Connection& company, const BeforeWriting& prepare) {
  Restart restart;
  Recordset assets = company.OpenRecordset(kRemaining);
  if (!IsReady(assets, restart)) return restart;
  Prepare(prepare);
  // One commit for all: one for each row takes minutes in a large register.
  Transaction transaction(company);
  try {
    for (; IsReady(assets, restart); assets.MoveNext(), ++restart.assets) RestartRow(assets);
  } catch (const Failure&) {
    CommitIfPossible(transaction);
    throw;
  }
  transaction.Commit();
  return restart;
}

std::string NewCodesText(std::int64_t assets) {
  return "Au fost completate coduri noi de clasificare pentru " + std::to_string(assets) +
         " imobilizari ";
}

std::string LowerLimitsText(std::int64_t codes) {
  return "Au fost modificate Duratele normale de functionare pentru " + std::to_string(codes) +
         " imobilizari ";
}

std::string RestartedText(int assets) {
  return "Au fost recalculate duratele ramase pentru " + std::to_string(assets) + " imobilizari ";
}

void Recalcul2005(const BeforeWriting& prepare) {
  ShowFailureOf({"Recalcul2005", "Module", "Module2"}, [&](int& line) {
    line = 1;
    Prepare(prepare);
    line = 2;
    Connection company(CurrentSession().connectionString);
    line = 3;
    const std::int64_t assets = AssociateNewCodes(company);
    company.Close();
    MsgBoxEx(NewCodesText(assets));
  });
}

void PreluareLimInf(const BeforeWriting& prepare) {
  Prepare(prepare);
  Connection company(CurrentSession().connectionString);
  const std::int64_t codes = TakeLowerLimits(company);
  company.Close();
  MsgBoxEx(LowerLimitsText(codes));
}

void Recalcul_DR_2005(const BeforeWriting& prepare) {
  ShowFailureOf({"Recalcul_DR_2005", "Modulul", "Module2"}, [&](int& line) {
    line = 1;
    Connection company(CurrentSession().connectionString);
    line = 2;
    const Restart restart = RestartAt2005(company, prepare);
    company.Close();
    if (!restart.refusal.empty()) {
      MsgBoxEx(restart.refusal);
    } else if (restart.assets > 0) {
      MsgBoxEx(RestartedText(restart.assets));
    }
  });
}

}  // namespace tevra
