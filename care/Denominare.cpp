#include "care/Denominare.h"

#include <string>

#include "care/Maintenance.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr long kQuestionWord = kYesNo | kQuestion;

constexpr const char* kAssets =
    "UPDATE I_IMO SET VAL_CUMP=Round(VAL_CUMP,0)/10000,"
    "VAL_AMOR_CUMULATA=Round(VAL_AMOR_CUMULATA,0)/10000,VAL_RAMASA=Round(VAL_RAMASA,0)/10000,";

constexpr const char* kObjects =
    "UPDATE I_INV SET VAL_CUMP=Round(VAL_CUMP,0)/10000,"
    "VAL_AMOR_CUMULATA=Round(VAL_AMOR_CUMULATA,0)/10000,VAL_RAMASA=Round(VAL_RAMASA,0)/10000 ,";

// Of both tables, with the rows that are converted.
constexpr const char* kRest =
    "VAL_BLOCATA=Round(VAL_BLOCATA,0)/10000,VAL_IESIRE=Round(VAL_IESIRE,0)/10000,"
    "VAL_RAMASA_IESIRE=Round(VAL_RAMASA_IESIRE,0)/10000,CURS=Round(CURS,0)/10000,"
    "VALCONSERVARE=Round(VALCONSERVARE,0)/10000,VALCHELEI=Round(VALCHELEI,0)/10000 "
    "WHERE DATA_ACH < CDATE('01/07/2005')";

void SetMinimumValue(Connection& company) {
  const std::int64_t changed =
      company.Execute("UPDATE I_VALIM SET VALIM = 1500 WHERE DATVALIM = CDATE('01/07/2005')");
  if (changed > 0) return;
  company.Execute("INSERT INTO I_VALIM (DATVALIM,VALIM) VALUES (CDATE('01/07/2005'), 1500)");
}

}  // namespace

bool IsRedenominated(Connection& company) {
  return !company.OpenRecordset("Select TITLU from KV_VAL Where COD = 'ROL' ").Eof();
}

bool AgreedToRedenominate() {
  if (clock::Today() < DateTime(2005, 7, 1) &&
      MsgBoxEx(" Convertirea bazei de date trebuie facuta incepand cu 01.07.2005", kQuestionWord,
               "Confirmati, va rog.") != kYes) {
    return false;
  }
  return MsgBoxEx(
             " Inregistrarile cu data achizitiei pana la 01.07.2005 vor fi convertite "
             "ireversibil in LEI NOI.",
             kQuestionWord, "Confirmati, va rog denominarea") == kYes;
}

bool Redenominate(Connection& company) {
  Transaction transaction(company);
  // Converting twice would divide the values twice.
  if (IsRedenominated(company)) return false;
  company.Execute(std::string(kAssets) + kRest);
  company.Execute(std::string(kObjects) + kRest);
  SetMinimumValue(company);
  company.Execute("INSERT INTO Kv_Val (COD,TITLU) VALUES ('ROL', 'LEI VECHI')");
  transaction.Commit();
  return true;
}

std::optional<bool> ROL() {
  const Procedure procedure{"ROL", "Module", "Module1"};
  try {
    Connection company(CurrentSession().connectionString);
    return IsRedenominated(company);
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(procedure), procedure);
    return std::nullopt;
  }
}

void Denominare(const StepFrame& frame) {
  const std::optional<bool> before = ROL();
  if (!before) return;
  if (*before) {
    MsgBoxEx(kRedenominatedBefore);
    return;
  }
  Procedure procedure{"Denominare", "Module", "Module1"};
  try {
    procedure.line = 1;
    if (!AgreedToRedenominate()) return;
    procedure.line = 2;
    frame([](const Progress& progress) { Salvare(progress); });
    procedure.line = 3;
    bool converted = false;
    frame([&](const Progress&) {
      Connection company(CurrentSession().connectionString);
      converted = Redenominate(company);
    });
    MsgBoxEx(converted ? kRedenominated : kRedenominatedBefore);
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(procedure), procedure);
  }
}

}  // namespace tevra
