#include "bench/GeneratedCompany.h"

#include <random>

#include <stdlib.h>

#include "platform/text/Numbers.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra::bench {

namespace {

constexpr int kCentres = 400;
constexpr int kLocations = 300;
constexpr int kSuppliers = 500;
constexpr std::size_t kLongestName = 50;
const std::string kNames[] = {"Utilaj de productie pentru sectia de montaj nr. ", "Strung ",
                              "Instalatie de climatizare cu recuperare nr. ",
                              "Calculator portabil cu statie de andocare nr. "};

// A plausible asset: parameters as the card derives them, so that every branch of the rules is
// walked.
Values Asset(int number, std::mt19937& random) {
  const auto pick = [&](int least, int greatest) {
    return std::uniform_int_distribution<int>(least, greatest)(random);
  };
  static constexpr const char* kMethods[] = {"L", "L", "L", "A", "N", "M", "F"};
  static constexpr const char* kAccounts[] = {"212", "2131", "2132", "2133", "214"};
  const std::string method = kMethods[pick(0, 6)];
  const int years = pick(3, 20);
  const DateTime bought(pick(1998, 2026), pick(1, 12), pick(1, 28));
  const DateTime start = DateTime(bought.Year(), bought.Month(), 1).AddMonths(1);
  const double value = pick(150000, 90000000) / 100.0;
  const bool blocked = pick(0, 19) == 0;
  const bool left = pick(0, 19) == 0;
  const int firstPhase = method == "A" ? 12 : 12 * pick(1, years);
  const std::string code = "INV" + std::to_string(number);
  return {code,
          (kNames[pick(0, 3)] + std::to_string(number)).substr(0, kLongestName),
          "CC" + std::to_string(pick(1, kCentres)),
          "L" + std::to_string(pick(1, kLocations)),
          pick(1, kSuppliers),
          "F" + std::to_string(pick(1, 9999)),
          bought,
          bought,
          start,
          start.AddMonths(12 * years),
          start.AddMonths(firstPhase),
          method,
          kAccounts[pick(0, 4)],
          "2.1.16",
          value,
          RoundTo(value / 4.9, 2),
          4.9,
          1.0 / years,
          method == "A" ? 0.5 : 2.0 / years,
          years,
          Value::YesNo(blocked),
          blocked ? Value(start.AddMonths(6)) : Value(),
          blocked ? value * 0.7 : 0.0,
          blocked ? value * 0.7 / 4.9 : 0.0,
          Value::YesNo(left),
          left ? Value(start.AddMonths(pick(0, 12 * years))) : Value()};
}

void AddAssets(Connection& connection, int assets) {
  std::mt19937 random(20061231);
  Transaction transaction(connection);
  for (int number = 1; number <= assets; ++number) {
    connection.Execute(
        "INSERT INTO I_IMO (COD, DENUMIRE, COD_CC, COD_LOC, COD_FURNIZOR, DOCUMENT, DATA_ACH, "
        "DATA_PF, DATA_IN_AM, DATA_SF, "
        "DATA_AMORT, "
        "TIP_AM, CONT, COD_GR_NOU, VAL_CUMP, VAL_CUMP_VAL, CURS, COTA_ANUALA, COEF, DNFANI, "
        "BLOCATA, "
        "DATA_BLOCARE, VAL_BLOCATA, VAL_BLOCATA_VAL, IESIRE, DATA_IESIRE) "
        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
        Asset(number, random));
  }
  transaction.Commit();
}

// What the assets name.
void AddNames(Connection& connection) {
  Transaction transaction(connection);
  const auto add = [&](const char* statement, int count, const std::string& prefix,
                       const std::string& name) {
    for (int number = 1; number <= count; ++number) {
      const std::string text = std::to_string(number);
      connection.Execute(statement,
                         {prefix.empty() ? Value(number) : Value(prefix + text), name + text});
    }
  };
  add("INSERT INTO Kv_CC (COD, TITLU) VALUES (?, ?)", kCentres, "CC", "Centrul de cost ");
  add("INSERT INTO I_LOCALIZARE (COD, TITLU) VALUES (?, ?)", kLocations, "L", "Hala ");
  add("INSERT INTO kv_Ter (COD, NUME) VALUES (?, ?)", kSuppliers, "", "Furnizor de utilaje ");
  transaction.Commit();
}

}  // namespace

GeneratedCompany::GeneratedCompany(int assets) {
  std::string pattern = (fs::temp_directory_path() / "tevra-bench-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw Failure(kPathNotFound, "Path not found: " + pattern);
  folder_ = pattern;
  file_ = folder_ / "Kelnar01.mdb";
  fs::copy_file(TEVRA_TEMPLATE, file_);
  Connection connection(ConnectionString());
  AddNames(connection);
  AddAssets(connection, assets);
}

GeneratedCompany::~GeneratedCompany() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

std::string GeneratedCompany::ConnectionString() const {
  return CompanyConnectionString(folder_.string(), file_.filename().string());
}

}  // namespace tevra::bench
