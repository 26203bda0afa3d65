#include <QJsonDocument>

#include "platform/data/Recordset.h"
#include "platform/system/Clock.h"
#include "session/Module1.h"
#include "tests/batch/MonthEndTest.h"

namespace fs = std::filesystem;

namespace tevra::batch::test {

MonthEndTest::MonthEndTest() {
  clock::Set(DateTime(2026, 11, 24, 10, 30));
  company_.AddAsset({{"COD", "10"},
                     {"DENUMIRE", "Strung"},
                     {"TIP_AM", "L"},
                     {"CONT", "2131"},
                     {"DATA_ACH", DateTime(2025, 12, 10)},
                     {"DATA_IN_AM", DateTime(2026, 1, 1)},
                     {"DATA_SF", DateTime(2035, 12, 31)},
                     {"VAL_CUMP", 12000.0},
                     {"VAL_CUMP_VAL", 3000.0},
                     {"COTA_ANUALA", 0.1}});
  Connection company = company_.Open();
  company.Execute("DELETE * FROM I_CONTURIIM");
  company.Execute(
      "INSERT INTO I_CONTURIIM (CONT, CONT_AMO, CONT_CHELT) VALUES ('2131', '2813', '6811')");
  company.Close();
  for (const char* code : {"02", "03"}) fs::copy_file(company_.File(), FileOf(code));
  for (const auto& [code, name] : {std::pair("01", "Alfa"), {"02", "Beta"}, {"03", "Gama"}}) {
    OpenCompany(code).Execute("UPDATE kv_info SET DENUMIRE = ?", {name});
  }
  passwords_ = Passwords("01;admin;1\n02;admin;1\n03;admin;1\n");
}

MonthEndTest::~MonthEndTest() {
  clock::Reset();
}

fs::path MonthEndTest::FileOf(const std::string& code) const {
  return Directory() / ("Kelnar" + code + ".mdb");
}

Connection MonthEndTest::OpenCompany(const std::string& code) const {
  return Connection(CompanyConnectionString(Directory().string(), "Kelnar" + code + ".mdb"));
}

fs::path MonthEndTest::Folder(const std::string& name) const {
  fs::create_directory(Directory() / name);
  return Directory() / name;
}

std::string MonthEndTest::Passwords(const std::string& lines) const {
  const std::string file = File("parole", lines);
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  return file;
}

Result MonthEndTest::End(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), {"month-end", "--all", "--credentials", passwords_});
  return Run(arguments);
}

QJsonObject MonthEndTest::Json(const std::vector<std::string>& arguments) const {
  std::vector<std::string> all = arguments;
  all.emplace_back("--json");
  const Result result = End(all);
  QJsonParseError error;
  const QByteArray text = QByteArray::fromStdString(result.out);
  const QJsonDocument document = QJsonDocument::fromJson(text, &error);
  EXPECT_EQ(error.error, QJsonParseError::NoError) << result.out << result.err;
  EXPECT_EQ(document["failed"].toInt(-1) > 0, result.code == 1) << result.out << result.err;
  return document.object();
}

QJsonObject MonthEndTest::CompanyOf(const QJsonObject& run, const std::string& code) {
  for (const QJsonValue company : run["companies"].toArray()) {
    if (company["code"].toString().toStdString() == code) return company.toObject();
  }
  ADD_FAILURE() << "no company " << code;
  return {};
}

std::string MonthEndTest::Lines(const std::string& code) const {
  Connection company = OpenCompany(code);
  Recordset rows =
      company.OpenRecordset("SELECT NDI, DOC, CONT, DEBIT FROM Kv_Linii ORDER BY NDI, NRLINIE");
  std::string text;
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) text += rows.Get(i).TextOrEmpty() + " ";
    text += "\n";
  }
  return text;
}

void MonthEndTest::WriteOfAnotherYear() const {
  OpenCompany("03").Execute(
      "INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, PROV, DOC, DATAINR, CONT, DEBIT) VALUES (7, 1, "
      "'OD', 'I', 'IMO10', '2025-10-31 00:00:00', '6811', 55)");
}

std::map<std::string, std::string> MonthEndTest::Everything() const {
  std::map<std::string, std::string> all;
  for (const auto& entry : fs::recursive_directory_iterator(Directory())) {
    all[entry.path().string()] = entry.is_regular_file() ? Content(entry.path()) : "";
  }
  return all;
}

}  // namespace tevra::batch::test
