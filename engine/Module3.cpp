#include "engine/Module3.h"

#include <cstdint>
#include <limits>

#include "engine/DepreciationRules.h"
#include "platform/data/ForwardCursor.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

// What the run reads of a row, in the order of `kRead`, and writes back, in the order of `kWritten`.
enum Read {
  rNRCRT, rCOD, rTIP_AM, rBLOCATA, rIESIRE, rDATA_IESIRE, rDATA_ACH, rDATA_IN_AM, rDATA_AMORT, rDATA_SF,
  rDATA_BLOCARE, rVAL_CUMP, rVAL_CUMP_VAL, rVAL_BLOCATA, rVAL_BLOCATA_VAL, rCOTA_ANUALA, rCOEF,
  rWritten
};
const std::vector<std::string> kRead{
    "NRCRT",        "COD",         "TIP_AM",          "BLOCATA",   "IESIRE",       "DATA_IESIRE",
    "DATA_ACH",     "DATA_IN_AM",  "DATA_AMORT",      "DATA_SF",   "DATA_BLOCARE", "VAL_CUMP",
    "VAL_CUMP_VAL", "VAL_BLOCATA", "VAL_BLOCATA_VAL", "COTA_ANUALA", "COEF"};

// Behind them it reads the fields that it writes, as they are stored.
constexpr int kStoredAt = rWritten;
enum Written {
  wDATA_CALCUL, wDALUNI, wCOTAL_LUNARA, wVAL_AMOR_CUMULATA, wVAL_AMOR_CUMULATA_VAL, wVAL_RAMASA,
  wVAL_RAMASA_VAL, wVALCHELEI, wVALCHEVAL
};
const std::vector<std::string> kWritten{
    "DATA_CALCUL", "DALUNI",         "COTAL_LUNARA", "VAL_AMOR_CUMULATA", "VAL_AMOR_CUMULATA_VAL",
    "VAL_RAMASA",  "VAL_RAMASA_VAL", "VALCHELEI",    "VALCHEVAL"};

std::vector<std::string> AllRead() {
  std::vector<std::string> all = kRead;
  all.insert(all.end(), kWritten.begin(), kWritten.end());
  return all;
}

AssetParameters Parameters(const ForwardCursor& row) {
  AssetParameters asset;
  asset.TIP_AM = MethodCode(row.Text(rTIP_AM));
  asset.BLOCATA = row.YesNo(rBLOCATA);
  asset.IESIRE = row.YesNo(rIESIRE);
  asset.DATA_IESIRE = row.Date(rDATA_IESIRE);
  asset.DATA_ACH = row.Date(rDATA_ACH);
  asset.DATA_IN_AM = row.Date(rDATA_IN_AM);
  asset.DATA_AMORT = row.Date(rDATA_AMORT);
  asset.DATA_SF = row.Date(rDATA_SF);
  asset.DATA_BLOCARE = row.Date(rDATA_BLOCARE);
  asset.VAL_CUMP = row.Number(rVAL_CUMP);
  asset.VAL_CUMP_VAL = row.Number(rVAL_CUMP_VAL);
  asset.VAL_BLOCATA = row.Number(rVAL_BLOCATA);
  asset.VAL_BLOCATA_VAL = row.Number(rVAL_BLOCATA_VAL);
  asset.COTA_ANUALA = row.Number(rCOTA_ANUALA);
  asset.COEF = row.Number(rCOEF);
  return asset;
}

CalculatedFields StoredFields(const ForwardCursor& row) {
  CalculatedFields fields;
  fields.DATA_CALCUL = row.Date(kStoredAt + wDATA_CALCUL);
  if (const auto months = row.Number(kStoredAt + wDALUNI)) fields.DALUNI = CLng(*months);
  fields.COTAL_LUNARA = row.Number(kStoredAt + wCOTAL_LUNARA);
  fields.VAL_AMOR_CUMULATA = row.Number(kStoredAt + wVAL_AMOR_CUMULATA);
  fields.VAL_AMOR_CUMULATA_VAL = row.Number(kStoredAt + wVAL_AMOR_CUMULATA_VAL);
  fields.VAL_RAMASA = row.Number(kStoredAt + wVAL_RAMASA);
  fields.VAL_RAMASA_VAL = row.Number(kStoredAt + wVAL_RAMASA_VAL);
  fields.VALCHELEI = row.Number(kStoredAt + wVALCHELEI);
  fields.VALCHEVAL = row.Number(kStoredAt + wVALCHEVAL);
  return fields;
}

void SetNumber(ForwardCursor& row, int column, const std::optional<double>& value) {
  if (value) {
    row.SetNumber(column, *value);
  } else {
    row.SetNull(column);
  }
}

void WriteFields(ForwardCursor& row, const CalculatedFields& fields) {
  if (fields.DATA_CALCUL) {
    row.SetDate(wDATA_CALCUL, *fields.DATA_CALCUL);
  } else {
    row.SetNull(wDATA_CALCUL);
  }
  if (fields.DALUNI) {
    row.SetWhole(wDALUNI, *fields.DALUNI);
  } else {
    row.SetNull(wDALUNI);
  }
  SetNumber(row, wCOTAL_LUNARA, fields.COTAL_LUNARA);
  SetNumber(row, wVAL_AMOR_CUMULATA, fields.VAL_AMOR_CUMULATA);
  SetNumber(row, wVAL_AMOR_CUMULATA_VAL, fields.VAL_AMOR_CUMULATA_VAL);
  SetNumber(row, wVAL_RAMASA, fields.VAL_RAMASA);
  SetNumber(row, wVAL_RAMASA_VAL, fields.VAL_RAMASA_VAL);
  SetNumber(row, wVALCHELEI, fields.VALCHELEI);
  SetNumber(row, wVALCHEVAL, fields.VALCHEVAL);
  row.Write();
}

void CalculateRow(ForwardCursor& row, const DateTime& dataCalcul) {
  try {
    const CalculatedFields stored = StoredFields(row);
    CalculatedFields fields = stored;
    CalculateForMonth(Parameters(row), dataCalcul, fields);
    if (!(fields == stored)) WriteFields(row, fields);
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), failure.Description(),
                  "NRCRT " + std::string(row.Text(rNRCRT)) + ", COD " + std::string(row.Text(rCOD)));
  }
}

}  // namespace

int RunMonth(Connection& connection, const DateTime& dataCalcul) {
  std::int16_t count = 0;
  Transaction transaction(connection);
  {
    ForwardCursor row(connection, "Select * from i_imo ", AllRead(), kWritten);
    while (row.Next()) {
      CalculateRow(row, dataCalcul);
      if (count == std::numeric_limits<std::int16_t>::max()) throw Failure(kOverflow, "Overflow");
      ++count;
    }
  }
  transaction.Commit();
  return count;
}

std::string MonthDoneText(int assets) {
  return "Calculul cheltuielilor lunare s-a efectuat pentru " + Str(assets) + " imobilizari";
}

void CalculLunar(const DateTime& dataCalcul) {
  try {
    Connection connection(CurrentSession().connectionString);
    const int count = RunMonth(connection, dataCalcul);
    connection.Close();
    MsgBoxEx(MonthDoneText(count), kInformation);
  } catch (const Failure&) {
    MsgBoxEx(kMonthFailedText, kCritical, kMonthFailedTitle);
  }
}

bool IsValidCalcul(const DateTime& data) {
  try {
    const Recordset last =
        OpenRecordset("SELECT MAX(DATA_CALCUL) FROM I_IMO WHERE NOT Data_Calcul IS NULL");
    return !last.Eof() && last.Get(0).AsDateTime().Month() == data.Month();
  } catch (const Failure&) {
    return false;
  }
}

double DurataNormala(const std::string& cod) {
  static const DateTime kNewCatalogue(2005, 1, 1);
  const Recordset duration =
      clock::Today() > kNewCatalogue
          ? OpenRecordset("Select DURNOR_NOU from I_CLASIFICARE where COD_GR_NOU = ?", {cod})
          : OpenRecordset("Select DURNOR from I_CLASIFICARE where COD_GR = ?", {cod});
  if (duration.Eof() || duration.Get(0).IsNull()) return 0;
  return duration.Get(0).AsDouble();
}

DateTime MonthBegin(const DateTime& date) { return {date.Year(), date.Month(), 1}; }

DateTime MonthEnd(const DateTime& date) { return MonthBegin(date).AddMonths(1).AddDays(-1); }

}  // namespace tevra
