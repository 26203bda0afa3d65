#include <array>
#include <optional>

#include "app/batch/Refusal.h"
#include "app/batch/Table.h"
#include "app/batch/WholeNumber.h"
#include "app/batch/commands/Commands.h"
#include "engine/PlanAmortizare.h"
#include "platform/data/Recordset.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

struct Column {
  const char* field;
  const char* caption;
};

constexpr std::array<Column, 9> kColumns{{
    {"AN", "An"},
    {"VALAMO", "Valoare de amortizat LEI"},
    {"AMO_AN", "Amortizarea anuala LEI"},
    {"VALAMOCUM", "Valoare amortizata cumulata LEI"},
    {"VALRAMASA", "Valoare ramasa de amortizat LEI"},
    {"VALAMO_VAL", "Valoare de amortizat in USD"},
    {"AMO_AN_VAL", "Amortizarea anuala USD"},
    {"VALAMOCUM_VAL", "Valoare amortizata cumulata USD"},
    {"VALRAMASA_VAL", "Valoare ramasa de amortizat USD"},
}};

void RequirePlan(Connection& connection, const std::string& nrcrt) {
  Recordset asset;
  if (const auto number = WholeNumber(nrcrt)) {
    asset = connection.OpenRecordset("SELECT IESIRE, TIP_AM FROM I_IMO WHERE NRCRT = ?", {*number});
  }
  if (!asset.IsOpen() || asset.Eof()) {
    throw Refusal("Imobilizarea cu numarul curent " + nrcrt + " nu exista !");
  }
  const char* refusal = PlanRefusal(asset.Get("IESIRE"), asset.Get("TIP_AM"));
  if (refusal) throw Refusal(refusal);
}

template <class Write>
void ForEachYear(Recordset& years, Write write) {
  for (; !years.Eof(); years.MoveNext()) {
    Values row;
    for (const Column& column : kColumns) row.push_back(years.Get(column.field));
    write(row);
  }
}

void WriteCsv(Recordset& years, std::ostream& out) {
  CsvWriter writer(out);
  Values names;
  for (const Column& column : kColumns) names.emplace_back(column.field);
  writer.WriteRow(names);
  ForEachYear(years, [&](const Values& row) { writer.WriteRow(row); });
}

void WriteTable(Recordset& years, std::ostream& out) {
  if (!years.Eof()) {
    out << "Plan de Amortizare: " << years.Get("ID").AsText() << " - "
        << years.Get("DENUMIRE").TextOrEmpty() << "\n\n";
  }
  std::vector<TextTable::Column> columns;
  for (const Column& column : kColumns) columns.push_back({column.caption, true});
  TextTable table(std::move(columns));
  ForEachYear(years, [&](const Values& row) { table.AddRow(row); });
  table.Write(out);
}

}  // namespace

void WritePlan(const std::string& nrcrt, bool csv, std::ostream& out) {
  Connection connection(CurrentSession().connectionString);
  RequirePlan(connection, nrcrt);
  // Prints this plan even when another user makes another one meanwhile.
  Transaction transaction(connection);
  MakePlan(connection, nrcrt);
  Recordset years = connection.OpenRecordset("select * from I_PLANAMO");
  transaction.Commit();
  csv ? WriteCsv(years, out) : WriteTable(years, out);
}

}  // namespace tevra::batch
