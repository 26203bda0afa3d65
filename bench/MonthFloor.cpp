#include "bench/MonthFloor.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <sqlite3.h>

#include "bench/BareRows.h"
#include "engine/DepreciationRules.h"

namespace tevra::bench {

namespace {

constexpr const char* kSelect =
    "SELECT rowid, TIP_AM, BLOCATA, IESIRE, DATA_IESIRE, DATA_ACH, DATA_IN_AM, DATA_AMORT, "
    "DATA_SF, "
    "DATA_BLOCARE, VAL_CUMP, VAL_CUMP_VAL, VAL_BLOCATA, VAL_BLOCATA_VAL, COTA_ANUALA, COEF, "
    "DATA_CALCUL, "
    "DALUNI, COTAL_LUNARA, VAL_AMOR_CUMULATA, VAL_AMOR_CUMULATA_VAL, VAL_RAMASA, VAL_RAMASA_VAL, "
    "VALCHELEI, VALCHEVAL FROM I_IMO";
constexpr const char* kUpdate =
    "UPDATE I_IMO SET DATA_CALCUL = ?1, DALUNI = ?2, COTAL_LUNARA = ?3, VAL_AMOR_CUMULATA = ?4, "
    "VAL_AMOR_CUMULATA_VAL = ?5, VAL_RAMASA = ?6, VAL_RAMASA_VAL = ?7, VALCHELEI = ?8, VALCHEVAL = "
    "?9 "
    "WHERE rowid = ?10";

void Check(int code) {
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
}

std::optional<double> Number(sqlite3_stmt* row, int column) {
  if (sqlite3_column_type(row, column) == SQLITE_NULL) return std::nullopt;
  return sqlite3_column_double(row, column);
}

std::optional<DateTime> Date(sqlite3_stmt* row, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
  return text ? DateTime::FromIso(text) : std::nullopt;
}

AssetParameters Parameters(sqlite3_stmt* row) {
  AssetParameters asset;
  asset.TIP_AM = MethodCode(reinterpret_cast<const char*>(sqlite3_column_text(row, 1)));
  asset.BLOCATA = sqlite3_column_int(row, 2) != 0;
  asset.IESIRE = sqlite3_column_int(row, 3) != 0;
  asset.DATA_IESIRE = Date(row, 4);
  asset.DATA_ACH = Date(row, 5);
  asset.DATA_IN_AM = Date(row, 6);
  asset.DATA_AMORT = Date(row, 7);
  asset.DATA_SF = Date(row, 8);
  asset.DATA_BLOCARE = Date(row, 9);
  asset.VAL_CUMP = Number(row, 10);
  asset.VAL_CUMP_VAL = Number(row, 11);
  asset.VAL_BLOCATA = Number(row, 12);
  asset.VAL_BLOCATA_VAL = Number(row, 13);
  asset.COTA_ANUALA = Number(row, 14);
  asset.COEF = Number(row, 15);
  return asset;
}

CalculatedFields Stored(sqlite3_stmt* row) {
  CalculatedFields fields;
  fields.DATA_CALCUL = Date(row, 16);
  fields.DALUNI = sqlite3_column_int(row, 17);
  fields.COTAL_LUNARA = Number(row, 18);
  fields.VAL_AMOR_CUMULATA = Number(row, 19);
  fields.VAL_AMOR_CUMULATA_VAL = Number(row, 20);
  fields.VAL_RAMASA = Number(row, 21);
  fields.VAL_RAMASA_VAL = Number(row, 22);
  fields.VALCHELEI = Number(row, 23);
  fields.VALCHEVAL = Number(row, 24);
  return fields;
}

void Write(sqlite3_stmt* update, sqlite3_int64 rowId, const CalculatedFields& fields) {
  char date[20];
  if (fields.DATA_CALCUL) {
    fields.DATA_CALCUL->IsoTo(date);
    sqlite3_bind_text(update, 1, date, 19, SQLITE_STATIC);
  } else {
    sqlite3_bind_null(update, 1);
  }
  sqlite3_bind_int(update, 2, fields.DALUNI.value_or(0));
  const std::array<std::optional<double>, 7> numbers{
      fields.COTAL_LUNARA, fields.VAL_AMOR_CUMULATA, fields.VAL_AMOR_CUMULATA_VAL,
      fields.VAL_RAMASA,   fields.VAL_RAMASA_VAL,    fields.VALCHELEI,
      fields.VALCHEVAL};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const int parameter = static_cast<int>(i) + 3;
    if (numbers[i]) {
      sqlite3_bind_double(update, parameter, *numbers[i]);
    } else {
      sqlite3_bind_null(update, parameter);
    }
  }
  sqlite3_bind_int64(update, 10, rowId);
  if (sqlite3_step(update) != SQLITE_DONE) throw std::runtime_error("update");
  sqlite3_reset(update);
}

}  // namespace

int RunFloor(const std::filesystem::path& file, const DateTime& dataCalcul, bool checks) {
  sqlite3* db = OpenBare(file);
  sqlite3_stmt* row = nullptr;
  sqlite3_stmt* update = nullptr;
  Check(sqlite3_exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; BEGIN IMMEDIATE",
                     nullptr, nullptr, nullptr));
  if (!checks) {
    Check(sqlite3_exec(db, "PRAGMA ignore_check_constraints=ON", nullptr, nullptr, nullptr));
  }
  Check(sqlite3_prepare_v2(db, kSelect, -1, &row, nullptr));
  Check(sqlite3_prepare_v2(db, kUpdate, -1, &update, nullptr));
  int count = 0;
  for (; sqlite3_step(row) == SQLITE_ROW; ++count) {
    const CalculatedFields stored = Stored(row);
    CalculatedFields fields = stored;
    CalculateForMonth(Parameters(row), dataCalcul, fields);
    if (!(fields == stored)) Write(update, sqlite3_column_int64(row, 0), fields);
  }
  sqlite3_finalize(row);
  sqlite3_finalize(update);
  Check(sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr));
  sqlite3_close(db);
  return count;
}

}  // namespace tevra::bench
