#include "engine/Module3.h"

#include <cstdint>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/DepreciationRules.h"
#include "platform/data/FileCheck.h"
#include "platform/data/ForwardCursor.h"
#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "platform/text/Invariant.h"
#include "platform/text/Numbers.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

// A field of the table and the member of the rules' structures.
template <typename Row, typename T>
struct Place {
  const char* field;
  std::optional<T> Row::*member;
};

enum Read { kNrCrt, kCod, kTipAm, kBlocata, kIesire, kFirstParameter };
constexpr const char* kReadFirst[] = {"NRCRT", "COD", "TIP_AM", "BLOCATA", "IESIRE"};
static_assert(std::size(kReadFirst) == kFirstParameter);

constexpr Place<AssetParameters, DateTime> kDates[] = {
    {"DATA_IESIRE", &AssetParameters::DATA_IESIRE},
    {"DATA_ACH", &AssetParameters::DATA_ACH},
    {"DATA_IN_AM", &AssetParameters::DATA_IN_AM},
    {"DATA_AMORT", &AssetParameters::DATA_AMORT},
    {"DATA_SF", &AssetParameters::DATA_SF},
    {"DATA_BLOCARE", &AssetParameters::DATA_BLOCARE},
};
constexpr Place<AssetParameters, double> kValues[] = {
    {"VAL_CUMP", &AssetParameters::VAL_CUMP},
    {"VAL_CUMP_VAL", &AssetParameters::VAL_CUMP_VAL},
    {"VAL_BLOCATA", &AssetParameters::VAL_BLOCATA},
    {"VAL_BLOCATA_VAL", &AssetParameters::VAL_BLOCATA_VAL},
    {"COTA_ANUALA", &AssetParameters::COTA_ANUALA},
    {"COEF", &AssetParameters::COEF},
};

// The fields that the rules write. The run reads them too, because some branches write only a part.
enum Written { kDataCalcul, kDaluni, kFirstResult };
constexpr const char* kWrittenFirst[] = {"DATA_CALCUL", "DALUNI"};
static_assert(std::size(kWrittenFirst) == kFirstResult);

constexpr Place<CalculatedFields, double> kResults[] = {
    {"COTAL_LUNARA", &CalculatedFields::COTAL_LUNARA},
    {"VAL_AMOR_CUMULATA", &CalculatedFields::VAL_AMOR_CUMULATA},
    {"VAL_AMOR_CUMULATA_VAL", &CalculatedFields::VAL_AMOR_CUMULATA_VAL},
    {"VAL_RAMASA", &CalculatedFields::VAL_RAMASA},
    {"VAL_RAMASA_VAL", &CalculatedFields::VAL_RAMASA_VAL},
    {"VALCHELEI", &CalculatedFields::VALCHELEI},
    {"VALCHEVAL", &CalculatedFields::VALCHEVAL},
};
constexpr int kFirstStored = kFirstParameter + std::size(kDates) + std::size(kValues);

std::vector<std::string> WrittenFields() {
  std::vector<std::string> fields(std::begin(kWrittenFirst), std::end(kWrittenFirst));
  for (const auto& place : kResults) fields.emplace_back(place.field);
  return fields;
}

std::vector<std::string> ReadFields() {
  std::vector<std::string> fields(std::begin(kReadFirst), std::end(kReadFirst));
  for (const auto& place : kDates) fields.emplace_back(place.field);
  for (const auto& place : kValues) fields.emplace_back(place.field);
  const std::vector<std::string> written = WrittenFields();
  fields.insert(fields.end(), written.begin(), written.end());
  return fields;
}

AssetParameters Parameters(const ForwardCursor& row) {
  AssetParameters asset;
  asset.TIP_AM = MethodCode(row.Text(kTipAm));
  if (!row.IsNull(kBlocata)) asset.BLOCATA = row.YesNo(kBlocata);
  asset.IESIRE = row.YesNo(kIesire);
  int column = kFirstParameter;
  for (const auto& place : kDates) asset.*place.member = row.Date(column++);
  for (const auto& place : kValues) asset.*place.member = row.Number(column++);
  return asset;
}

CalculatedFields StoredFields(const ForwardCursor& row) {
  CalculatedFields fields;
  fields.DATA_CALCUL = row.Date(kFirstStored + kDataCalcul);
  if (const auto months = row.Number(kFirstStored + kDaluni)) fields.DALUNI = CLng(*months);
  int column = kFirstStored + kFirstResult;
  for (const auto& place : kResults) fields.*place.member = row.Number(column++);
  return fields;
}

void WriteFields(ForwardCursor& row, const CalculatedFields& fields) {
  row.Set(kDataCalcul, fields.DATA_CALCUL);
  row.Set(kDaluni, fields.DALUNI);
  int column = kFirstResult;
  for (const auto& place : kResults) row.Set(column++, fields.*place.member);
  row.Write();
}

using Rules = void (*)(const AssetParameters& asset, const DateTime& dataCalcul,
                       CalculatedFields& fields);

void CalculateRow(ForwardCursor& row, const DateTime& dataCalcul, Rules rules) {
  try {
    const CalculatedFields stored = StoredFields(row);
    CalculatedFields fields = stored;
    rules(Parameters(row), dataCalcul, fields);
    if (!(fields == stored)) WriteFields(row, fields);
  } catch (const Failure& failure) {
    throw Failure(
        failure.Number(), failure.Description(),
        "NRCRT " + std::string(row.Text(kNrCrt)) + ", COD " + std::string(row.Text(kCod)));
  }
}

// The first asset that fits.
bool CalculateFirst(Connection& connection, const DateTime& dataCalcul, const char* statement,
                    const Value& asset) {
  Transaction transaction(connection);
  bool found = false;
  {
    ForwardCursor row(connection, statement, ReadFields(), WrittenFields(), {asset});
    found = row.Next();
    if (found) CalculateRow(row, dataCalcul, CalculateSingle);
  }
  transaction.Commit();
  return found;
}

std::function<void(Connection&)>& BeforeMonth() {
  static std::function<void(Connection&)> prepare;
  return prepare;
}

}  // namespace

void SetBeforeMonth(std::function<void(Connection&)> prepare) {
  BeforeMonth() = std::move(prepare);
}

void PrepareMonth(Connection& connection) {
  if (BeforeMonth()) BeforeMonth()(connection);
}

int RunMonth(Connection& connection, const DateTime& dataCalcul) {
  std::int16_t count = 0;
  Transaction transaction(connection);
  PrepareMonth(connection);
  {
    ForwardCursor row(connection, "Select * from i_imo ", ReadFields(), WrittenFields());
    while (row.Next()) {
      CalculateRow(row, dataCalcul, CalculateForMonth);
      if (count == std::numeric_limits<std::int16_t>::max()) throw Failure(kOverflow, "Overflow");
      ++count;
    }
  }
  InvariantEqual(count, connection.QueryValue("SELECT COUNT(*) FROM I_IMO").Whole(),
                 "imobilizari calculate");
  transaction.Commit();
  return count;
}

bool CalculateAsset(Connection& connection, const DateTime& dataCalcul, const std::string& cod) {
  return CalculateFirst(connection, dataCalcul, "Select * from i_imo where cod = ?", cod);
}

bool CalculateAsset(Connection& connection, const DateTime& dataCalcul, std::int32_t nrCrt) {
  return CalculateFirst(connection, dataCalcul, "Select * from i_imo where NRCRT = ?", nrCrt);
}

void CalculImobilizare(const DateTime& dataCalcul, const std::string& cod) {
  Connection connection(CurrentSession().connectionString);
  [[maybe_unused]] const bool found = CalculateAsset(connection, dataCalcul, cod);
}

void CalculImobilizare(const DateTime& dataCalcul, std::int32_t nrCrt) {
  Connection connection(CurrentSession().connectionString);
  [[maybe_unused]] const bool found = CalculateAsset(connection, dataCalcul, nrCrt);
}

std::string MonthDoneText(int assets) {
  return "Calculul cheltuielilor lunare s-a efectuat pentru " + Str(assets) + " imobilizari";
}

void CalculLunar(const DateTime& dataCalcul) {
  int count = 0;
  try {
    Connection connection(CurrentSession().connectionString);
    count = RunMonth(connection, dataCalcul);
  } catch (const std::exception& failed) {
    LogCaughtFailure({"CalculLunar", "Module", "Module3"});
    MsgBoxEx(kMonthFailedText, kCritical, kMonthFailedTitle);
    // The backup to go back to stands only there.
    if (dynamic_cast<const DamagedFile*>(&failed)) MsgBoxEx(failed.what(), kCritical);
    return;
  }
  MsgBoxEx(MonthDoneText(count), kInformation);
}

bool IsValidCalcul(const DateTime& data) {
  try {
    const Recordset last =
        OpenRecordset("SELECT MAX(DATA_CALCUL) FROM I_IMO WHERE NOT Data_Calcul IS NULL");
    return !last.Eof() && last.Get(0).AsDateTime().Month() == data.Month();
  } catch (const std::exception&) {
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

DateTime MonthBegin(const DateTime& date) {
  return {date.Year(), date.Month(), 1};
}

DateTime MonthEnd(const DateTime& date) {
  return MonthBegin(date).AddMonths(1).AddDays(-1);
}

}  // namespace tevra
