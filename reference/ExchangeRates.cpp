#include "reference/ExchangeRates.h"

#include <map>

#include "platform/data/Command.h"
#include "platform/data/RowReader.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

// The codes of the company's currencies, by the same in capitals.
std::map<std::string, std::string> KnownCodes(const Connection& company) {
  std::map<std::string, std::string> codes;
  for (RowReader rows(company, "select COD from kv_val"); rows.Next();) {
    const std::string code(rows.Text(0));
    codes[UCase(Trim(code))] = code;
  }
  return codes;
}

class Writer {
 public:
  explicit Writer(const Connection& company)
      : onDay_(company, "select count(*) from kv_val2 where COD = ? and DATA >= ? and DATA < ?"),
        same_(company, "select count(*) from kv_val2 where COD = ? and DATA = ? and CURS = ?"),
        remove_(company, "delete from kv_val2 where COD = ? and DATA >= ? and DATA < ?"),
        insert_(company, "insert into kv_val2 (COD, DATA, CURS) values (?, ?, ?)") {}

  void Write(const std::string& code, const DateTime& day, double rate, RatesStored& stored) {
    const Values ofDay{code, day, day.AddDays(1)};
    const std::int64_t count = onDay_.QueryValue(ofDay).Whole();
    if (count == 1 && same_.QueryValue({code, day, rate}).Whole() == 1) {
      ++stored.unchanged;
      return;
    }
    if (count > 0) remove_.Execute(ofDay);
    insert_.Execute({code, day, rate});
    ++(count > 0 ? stored.changed : stored.added);
  }

 private:
  Command onDay_;
  Command same_;
  Command remove_;
  Command insert_;
};

std::string Counted(int count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

RatesStored StoreRates(Connection& company, const RatesFile& file) {
  Transaction transaction(company);
  const std::map<std::string, std::string> codes = KnownCodes(company);
  Writer writer(company);
  RatesStored stored;
  stored.skipped = file.empty;
  for (const auto& [key, rate] : file.rates) {
    const auto known = codes.find(key.second);
    if (known == codes.end()) {
      ++stored.skipped;
      stored.unknown.insert(key.second);
    } else {
      writer.Write(known->second, key.first, rate, stored);
    }
  }
  transaction.Commit();
  return stored;
}

std::string RatesStoredText(const RatesStored& stored) {
  std::string text = Counted(stored.added, "curs nou", "cursuri noi") + ", " +
                     Counted(stored.changed, "modificat", "modificate") + ", " +
                     Counted(stored.unchanged, "neschimbat", "neschimbate") + ", " +
                     Counted(stored.skipped, "sarit", "sarite");
  std::string unknown;
  for (const std::string& code : stored.unknown) unknown += (unknown.empty() ? "" : ", ") + code;
  if (!unknown.empty()) text += " (valute care nu sunt in lista: " + unknown + ")";
  return text;
}

}  // namespace tevra
