#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/Connection.h"
#include "platform/text/Dates.h"
#include "platform/text/Strings.h"
#include "reports/ChargesList.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

ChargesBy ByOf(Grouping grouping) {
  switch (grouping) {
    case Grouping::Class:
      return ChargesBy::Class;
    case Grouping::Location:
      return ChargesBy::Location;
    case Grouping::Centre:
      return ChargesBy::Centre;
    default:
      return ChargesBy::Account;
  }
}

template <typename Take>
void ForEachAsset(const ChargesList& charges, const ChargesList::Group& group, Take take) {
  for (std::size_t i = 0; i < group.assets; ++i) take(charges.AssetAt(group.first + i));
}

void WriteCsv(const ChargesList& charges, const char* key, std::ostream& out) {
  CsvWriter writer(out);
  const auto total = [&](const std::string& group, const char* label,
                         const ChargesList::Sums& sums) {
    writer.WriteRow({group, label, {}, {}, sums.charge, sums.cumulated, sums.remaining});
  };
  writer.WriteRow(
      {key, "NRCRT", "COD", "DENUMIRE", "AMORTIZARE_LUNARA", "VAL_AMOR_CUMULATA", "VAL_RAMASA"});
  for (std::size_t i = 0; i < charges.GroupCount(); ++i) {
    const ChargesList::Group group = charges.GroupAt(i);
    ForEachAsset(charges, group, [&](const ChargesList::Asset& asset) {
      writer.WriteRow({group.key, asset.number, asset.code, asset.name, asset.charge,
                       asset.cumulated, asset.remaining});
    });
  }
  for (std::size_t i = 0; i < charges.GroupCount(); ++i) {
    const ChargesList::Group group = charges.GroupAt(i);
    total(group.key, "TOTAL", group.sums);
  }
  total({}, "TOTAL GENERAL", charges.Totals());
}

std::string Title(const ChargesList& charges) {
  static const std::string kTitle = "Cheltuieli cu amortizarea";
  if (!charges.Month()) return kTitle + ", fara nici un calcul\n";
  const std::string warning = OtherMonthsText(charges.Month()->others);
  return kTitle + ", ultimul calcul la " + ShortDate(charges.Month()->last) + "\n" +
         (warning.empty() ? "" : warning + "\n");
}

void AddRows(const ChargesList& charges, const std::string& caption, TextTable& table) {
  const auto total = [&](const std::string& label, const ChargesList::Sums& sums) {
    table.AddRow({{}, {}, label, sums.cumulated, sums.remaining, sums.charge});
  };
  for (std::size_t i = 0; i < charges.GroupCount(); ++i) {
    const ChargesList::Group group = charges.GroupAt(i);
    table.AddHeading(Trim(caption + ": " + group.key));
    ForEachAsset(charges, group, [&](const ChargesList::Asset& asset) {
      table.AddRow(
          {asset.number, asset.code, asset.name, asset.cumulated, asset.remaining, asset.charge});
    });
    total(Trim("Total " + group.key), group.sums);
    table.AddRule();
  }
  total("Total general", charges.Totals());
}

}  // namespace

void ListCharges(Grouping grouping, bool csv, std::ostream& out) {
  const ChargesBy by = ByOf(grouping);
  Connection connection(CurrentSession().connectionString);
  const ChargesList charges(connection, by);
  if (csv) return WriteCsv(charges, KeyOf(by).field, out);
  out << Title(charges) << "\n";
  TextTable::WriteInTwoPasses(
      {{"Nr. crt.", true},
       {"Nr. inv."},
       {"Denumire"},
       {"Amortizare cumulata", true},
       {"Valoare ramasa", true},
       {"Amortizare lunara", true}},
      out, [&](TextTable& table) { AddRows(charges, KeyOf(by).caption, table); });
}

}  // namespace tevra::batch
