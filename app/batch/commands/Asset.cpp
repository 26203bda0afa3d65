#include <array>

#include "app/batch/Refusal.h"
#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "engine/Module3.h"
#include "platform/data/Recordset.h"
#include "platform/text/Numbers.h"

namespace tevra::batch {

namespace {

struct Field {
  const char* name;
  const char* caption;
};

constexpr std::array<Field, 12> kFields{{
    {"NRCRT", "Nr. crt."},
    {"COD", "Nr. inv."},
    {"DENUMIRE", "Denumire"},
    {"TIP_AM", "Tip amortizare"},
    {"BLOCATA", "Blocata"},
    {"DATA_CALCUL", "Data de calcul"},
    {"DALUNI", "Durata amortizata (luni)"},
    {"COTAL_LUNARA", "Cota lunara"},
    {"VAL_AMOR_CUMULATA", "Valoare amortizare cumulata LEI"},
    {"VAL_RAMASA", "Valoare ramasa de amortizat LEI"},
    {"VAL_AMOR_CUMULATA_VAL", "Valoare amortizata cumulata USD"},
    {"VAL_RAMASA_VAL", "Valoare ramasa de amortizat USD"},
}};

Recordset ReadAsset(Connection& connection, const std::string& cod) {
  std::string names;
  for (const Field& field : kFields) names += (names.empty() ? "" : ", ") + std::string(field.name);
  return connection.OpenRecordset("SELECT " + names + " FROM I_IMO WHERE COD = ? ORDER BY NRCRT",
                                  {cod});
}

void WriteCsv(const Recordset& asset, std::ostream& out) {
  CsvWriter writer(out);
  Values names;
  Values values;
  for (const Field& field : kFields) {
    names.emplace_back(field.name);
    values.push_back(asset.Get(field.name));
  }
  writer.WriteRow(names);
  writer.WriteRow(values);
}

// A rate is shown with all its digits, because two decimals would show 0.
Value Shown(const Recordset& asset, const std::string& field) {
  const Value& value = asset.Get(field);
  if (value.IsNull()) return value;
  if (field == "COTAL_LUNARA") return CStr(value.AsDouble());
  if (field == "BLOCATA") return value.AsBool() ? "Da" : "Nu";
  return value;
}

void WriteTable(const Recordset& asset, std::ostream& out) {
  TextTable table({{"Camp"}, {"Valoare"}});
  for (const Field& field : kFields) table.AddRow({field.caption, Shown(asset, field.name)});
  table.Write(out);
}

}  // namespace

void CalculateOneAsset(Connection& company, const std::string& cod, const DateTime& date, bool csv,
                       std::ostream& out) {
  try {
    if (!CalculateAsset(company, date, cod)) {
      throw Refusal("Imobilizarea cu numarul de inventar " + cod + " nu exista !");
    }
  } catch (const Failure& failure) {
    throw Refusal(ErrorText(failure, failure.Source()), failure);
  }
  const Recordset asset = ReadAsset(company, cod);
  csv ? WriteCsv(asset, out) : WriteTable(asset, out);
}

}  // namespace tevra::batch
