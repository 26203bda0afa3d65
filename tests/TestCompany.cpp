#include "tests/TestCompany.h"

#include "platform/data/Recordset.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace fs = std::filesystem;

namespace tevra::test {

TestCompany::TestCompany(const std::string& code) : name_("Kelnar" + code + ".mdb") {
  fs::copy_file(TEVRA_TEMPLATE, Directory() / "Kelnar.mdb");
  fs::copy_file(TEVRA_TEMPLATE, File());
  LogIn();
}

void TestCompany::LogIn() const {
  Session& session = CurrentSession();
  session = {};
  session.connectionString = ConnectionString();
  session.databasesPath = Directory().string() + "/";
  session.selectedDatabase = name_;
  session.userName = "admin";
}

std::string TestCompany::ConnectionString() const {
  return CompanyConnectionString(Directory().string(), name_);
}

std::string TestCompany::Rows(const std::string& sql) const {
  Recordset rows = Open().OpenRecordset(sql);
  std::string text;
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) text += rows.Get(i).TextOrEmpty() + " ";
    text += "\n";
  }
  return text;
}

int TestCompany::AddAsset(const std::vector<std::pair<std::string, Value>>& fields) const {
  std::string names;
  std::string marks;
  Values values;
  for (const auto& [name, value] : fields) {
    names += (values.empty() ? "" : ", ") + name;
    marks += values.empty() ? "?" : ", ?";
    values.push_back(value);
  }
  Connection connection = Open();
  connection.Execute("INSERT INTO I_IMO (" + names + ") VALUES (" + marks + ")", values);
  return connection.QueryValue("SELECT MAX(NRCRT) FROM I_IMO").AsLong();
}

MessageRecorder::MessageRecorder() {
  before_ = SetMessageHandler([this](const MessageRequest& request) -> long {
    shown.push_back(request);
    if (answers.empty()) return (request.buttons & 15) == kYesNo ? kYes : kOk;
    const long answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  });
}

MessageRecorder::~MessageRecorder() {
  SetMessageHandler(before_);
}

}  // namespace tevra::test
