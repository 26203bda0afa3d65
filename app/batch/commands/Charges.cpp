#include <map>
#include <utility>

#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "platform/data/Connection.h"
#include "platform/data/MoneySum.h"
#include "platform/data/Recordset.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

struct GroupField {
  const char* name;
  const char* caption;
};

GroupField FieldOf(Grouping grouping) {
  switch (grouping) {
    case Grouping::Class:
      return {"COD_GR_NOU", "Cod de clasificare"};
    case Grouping::Location:
      return {"COD_LOC", "Localizare"};
    case Grouping::Centre:
      return {"COD_CC", "Centru de cost"};
    default:
      return {"CONT", "Cont"};
  }
}

struct Asset {
  Value number;
  Value code;
  Value name;
  Value charge;
  Value cumulated;
  Value remaining;
};

struct Sums {
  MoneySum charge;
  MoneySum cumulated;
  MoneySum remaining;

  void Add(const Asset& asset) {
    charge.Add(asset.charge);
    cumulated.Add(asset.cumulated);
    remaining.Add(asset.remaining);
  }
};

struct Group {
  std::vector<Asset> assets;
  Sums sums;
};

struct WithoutCase {
  bool operator()(const std::string& a, const std::string& b) const {
    return CompareNoCase(a, b) < 0;
  }
};

struct Charges {
  std::map<std::string, Group, WithoutCase> groups;  // assets without a key are the first, ""
  Sums sums;
  Value calculated;  // the date of the last run, Null before the first
};

// Rounded asset by asset, as it is posted, so that the sums are those of the postings.
Value PostedCharge(const Value& charge) {
  constexpr int kDecimals = 2;
  return charge.IsNull() ? Value() : Value(RoundTo(charge.AsDouble(), kDecimals));
}

// A run leaves the date of an asset that is gone, and of one without depreciation, as it was.
bool KeepsItsDate(const Recordset& asset) {
  return asset.Get("IESIRE").AsBool() || asset.Get("TIP_AM").TextOrEmpty() == "F";
}

Charges ReadCharges(const std::string& key) {
  Connection connection(CurrentSession().connectionString);
  Recordset rows =
      connection.OpenRecordset("SELECT NRCRT, COD, DENUMIRE, " + key +
                               ", VAL_AMOR_CUMULATA, VAL_RAMASA, DATA_CALCUL, IESIRE, TIP_AM, "
                               "IIF(BLOCATA=-1,VAL_BLOCATA * COTAL_LUNARA,(VAL_CUMP - "
                               "VALCHELEI) * COTAL_LUNARA) AS VAL_AMOR "
                               "FROM I_IMO ORDER BY NRCRT");
  Charges charges;
  for (; !rows.Eof(); rows.MoveNext()) {
    const Asset asset{rows.Get("NRCRT"),
                      rows.Get("COD"),
                      rows.Get("DENUMIRE"),
                      PostedCharge(rows.Get("VAL_AMOR")),
                      rows.Get("VAL_AMOR_CUMULATA"),
                      rows.Get("VAL_RAMASA")};
    Group& group = charges.groups[rows.Get(key).TextOrEmpty()];
    group.assets.push_back(asset);
    group.sums.Add(asset);
    charges.sums.Add(asset);
    const Value& date = rows.Get("DATA_CALCUL");
    if (KeepsItsDate(rows)) continue;
    if (CompareValues(date, charges.calculated) > 0) charges.calculated = date;
  }
  return charges;
}

void WriteCsv(const Charges& charges, const char* key, std::ostream& out) {
  CsvWriter writer(out);
  const auto total = [&](const std::string& group, const char* label, const Sums& sums) {
    writer.WriteRow({group,
                     label,
                     {},
                     {},
                     sums.charge.Total(),
                     sums.cumulated.Total(),
                     sums.remaining.Total()});
  };
  writer.WriteRow(
      {key, "NRCRT", "COD", "DENUMIRE", "AMORTIZARE_LUNARA", "VAL_AMOR_CUMULATA", "VAL_RAMASA"});
  for (const auto& [name, group] : charges.groups) {
    for (const Asset& asset : group.assets) {
      writer.WriteRow({name, asset.number, asset.code, asset.name, asset.charge, asset.cumulated,
                       asset.remaining});
    }
  }
  for (const auto& [name, group] : charges.groups) total(name, "TOTAL", group.sums);
  total({}, "TOTAL GENERAL", charges.sums);
}

std::string Title(const Charges& charges) {
  static const std::string kTitle = "Cheltuieli cu amortizarea";
  if (charges.calculated.IsNull()) return kTitle + ", fara nici un calcul";
  return kTitle + ", ultimul calcul la " + ShortDate(charges.calculated.AsDateTime());
}

void WriteTable(const Charges& charges, const std::string& caption, std::ostream& out) {
  TextTable table({{"Nr. crt.", true},
                   {"Nr. inv."},
                   {"Denumire"},
                   {"Amortizare cumulata", true},
                   {"Valoare ramasa", true},
                   {"Amortizare lunara", true}});
  const auto total = [&](const std::string& label, const Sums& sums) {
    table.AddRow(
        {{}, {}, label, sums.cumulated.Total(), sums.remaining.Total(), sums.charge.Total()});
  };
  for (const auto& [name, group] : charges.groups) {
    table.AddHeading(Trim(caption + ": " + name));
    for (const Asset& asset : group.assets) {
      table.AddRow(
          {asset.number, asset.code, asset.name, asset.cumulated, asset.remaining, asset.charge});
    }
    total(Trim("Total " + name), group.sums);
    table.AddRule();
  }
  total("Total general", charges.sums);
  out << Title(charges) << "\n\n";
  table.Write(out);
}

}  // namespace

void ListCharges(Grouping grouping, bool csv, std::ostream& out) {
  const GroupField field = FieldOf(grouping);
  const Charges charges = ReadCharges(field.name);
  if (csv) {
    WriteCsv(charges, field.name, out);
  } else {
    WriteTable(charges, field.caption, out);
  }
}

}  // namespace tevra::batch
