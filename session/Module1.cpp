#include "session/Module1.h"

#include <algorithm>
#include <map>

#include "platform/system/Clock.h"
#include "platform/system/MessageBox.h"
#include "platform/system/StandardError.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr const char* kProvider = "Provider=Microsoft.Jet.OLEDB.4.0";

Value FirstField(const Recordset& recordset) {
  return recordset.Eof() ? Value() : recordset.Get(0);
}

}  // namespace

std::string CompanyConnectionString(const std::string& databasesPath, const std::string& database) {
  return std::string(kProvider) + ";Data Source=" + databasesPath + "\\" + database +
         ";Mode=ReadWrite|Share Deny None;Persist Security Info=False; Jet OLEDB:Database "
         "Password=" +
         kFilePassword;
}

std::string getDataSource(const std::string& connectionString) {
  static const std::string kKey = "DATA SOURCE=";
  const std::string upper = UCase(connectionString);
  const std::size_t found = upper.find(kKey);
  if (found == std::string::npos) return {};
  const std::size_t start = found + kKey.size();
  return upper.substr(start, upper.find(';', start) - start);
}

std::string GetCodSocietate() {
  static const std::string kName = "KELNAR";
  constexpr std::size_t kExtension = 4;
  const std::string source = getDataSource(CurrentSession().connectionString);
  const std::size_t slash = source.rfind('\\');
  const std::size_t found = source.find(kName, slash == std::string::npos ? 0 : slash);
  if (found == std::string::npos) return {};
  const std::string code = source.substr(found + kName.size());
  return code.substr(0, code.size() - std::min(code.size(), kExtension));
}

std::string GetShapeConnection() {
  std::string shape = CurrentSession().connectionString;
  if (const std::size_t found = shape.find(kProvider); found != std::string::npos) {
    shape.replace(found, std::string(kProvider).size(), "Provider=MSDataShape.1");
  }
  return shape + ";Data Provider=Microsoft.Jet.OLEDB.4.0";
}

Recordset OpenRecordset(const std::string& sql, const Values& params) {
  Connection connection(CurrentSession().connectionString);
  return connection.OpenRecordset(sql, params);
}

std::int64_t ExecuteSQL(const std::string& sql, const Values& params) {
  Connection connection(CurrentSession().connectionString);
  return connection.Execute(sql, params);
}

Recordset getDisconectedRecordset(const std::string& sql, bool shape, const Values& params) {
  Procedure procedure{"getDisconectedRecordset", "Module", "Module1"};
  try {
    procedure.line = 1;
    Connection connection(shape ? GetShapeConnection() : CurrentSession().connectionString);
    procedure.line = 3;
    Recordset recordset = connection.OpenRecordset(sql, params);
    recordset.Disconnect();
    return recordset;
  } catch (const std::exception&) {
    ShowStandardError(CaughtFailure(procedure), procedure);
    return {};
  }
}

void OpenConnection(Connection& connection) {
  if (!connection.IsOpen()) connection.Open(CurrentSession().connectionString);
}

void CloseConnection(Connection& connection) {
  connection.Close();
}

void CloseRecordset(Recordset& recordset) {
  recordset.Close();
}

long GetRecordCount(const std::string& table) {
  return FirstField(OpenRecordset("SELECT Count(*) FROM " + table)).AsLong();
}

Value Nz(const Value& value) {
  return Nz(value, 0);
}

Value Nz(const Value& value, const Value& byDefault) {
  if (value.IsNull()) return byDefault;
  if (value.IsText() && value.Text().empty()) return 0;
  return value;
}

std::string GetTextDataCombo(const std::string& sql, const Values& params) {
  return FirstField(OpenRecordset(sql, params)).TextOrEmpty();
}

long GetNextNumber(const std::string& table) {
  static const std::map<std::string, std::string> kStatements{
      {"kv_linii", "Select Max(NDI) from "},     {"kv_Linii", "Select Max(NDI) from "},
      {"kv_Banca", "Select Max(NRLINIE) from "}, {"kv_Casa", "Select Max(NRLINIE) from "},
      {"kv_Div", "Select Max(NRLINIE) from "},   {"I_INV", "Select MAx(nrcrt) from "},
      {"I_IMO", "Select Max(NRCRT) from "},
  };
  const auto known = kStatements.find(table);
  const std::string statement =
      known == kStatements.end() ? "Select Max(COD) from " : known->second;
  const Value greatest = FirstField(OpenRecordset(statement + table));
  return greatest.IsNull() ? 1 : CLng(greatest.AsDouble() + 1);
}

bool ExistaInTabela(const std::string& value, const std::string& key) {
  static const std::map<std::string, const char*> kStatements{
      {"UTILIZATOR", "Select NUME from UTILIZATORI WHERE NUME=?"},
      {"CodJurnal", "Select kv_jur.COD from kv_jur WHERE kv_jur.COD=?"},
      {"CodClasificare",
       "Select i_clasificare.COD_GR_NOU from i_clasificare WHERE i_clasificare.COD_GR_NOU=?"},
      {"Cont", "Select kv_pc.CONT from kv_pc WHERE kv_pc.CONT=?"},
      {"OperTert", "Select CONT from kv_oper WHERE TIP = 'F' and CONT=?"},
      {"OperTVA", "Select CONT from kv_oper WHERE TIP = 'T' and CONT=?"},
      {"CodValuta", "Select COD from kv_val WHERE COD=?"},
      {"CodCentruCost", "Select COD from kv_cc WHERE COD=?"},
      {"CodOperLinii", "Select CODOPER from qryCodOperLinii WHERE CODOPER =Clng(?)"},
      {"CodOperJurnale", "Select CODOPER from kv_jur WHERE CODOPER =Clng(?)"},
      {"ContLinii", "Select CONT from qryContLinii WHERE CONT=?"},
      {"JurnalLinii", "Select JURNAL from qryJurnalLinii WHERE JURNAL =?"},
      {"CentreCostLinii", "Select CODBUG from qryCentreCostLinii WHERE CODBUG =?"},
      {"TertiLinii", "Select TERT from qryTertiLinii WHERE TERT =Clng(?)"},
      {"ContOperatiuni", "Select CONT from kv_Oper WHERE CONT =?"},
      {"ContJurnale", "Select CONT from kv_Jur WHERE CONT =?"},
      {"SI", "Select TIP from kv_Oper WHERE TIP ='S'"},
      {"CodLocalizare", "Select COD from I_LOCALIZARE WHERE COD=?"},
      {"CodConturiImob", "Select CONT from I_CONTURIIM WHERE CONT=?"},
      {"Data", "Select DATVALIM from I_VALIM WHERE DATVALIM=cDATE(?)"},
  };
  const auto known = kStatements.find(key);
  if (known == kStatements.end()) {
    MsgBoxEx("EROARE", kCritical);
    return false;
  }
  const std::string statement = known->second;
  const bool takesValue = statement.find('?') != std::string::npos;
  // One row is enough; a code in use may occur in a million lines.
  Connection connection(CurrentSession().connectionString);
  return !connection.QueryValue(statement, takesValue ? Values{value} : Values{}).IsNull();
}

int TipUtilizator(const std::string& user) {
  Connection company(CurrentSession().connectionString);
  return TipUtilizator(company, user);
}

int TipUtilizator(Connection& company, const std::string& user) {
  const Value type =
      FirstField(company.OpenRecordset("SELECT TIP from UTILIZATORI where NUME = ?", {user}));
  constexpr int kReportsOnly = 2;
  return type.IsNull() ? kReportsOnly : type.AsLong();
}

namespace {

void ClearParametri() {
  Session& session = CurrentSession();
  session.dataIn = session.dataSn = clock::Today();
  session.contFurnizori = session.contClienti = session.codDeviza = session.contObiecteInventar =
      "";
}

}  // namespace

void LoadParametri() {
  ClearParametri();
  Connection company(CurrentSession().connectionString);
  LoadParametri(company);
}

void LoadParametri(Connection& company) {
  ClearParametri();
  Session& session = CurrentSession();
  Recordset par = company.OpenRecordset("SELECT * FROM Kv_PAR");
  if (par.Eof()) return;
  session.contFurnizori = par.Get("CONTFURNIZORI").TextOrEmpty();
  session.contClienti = par.Get("CONTCLIENTI").TextOrEmpty();
  session.codDeviza = par.Get("CODDeviza").TextOrEmpty();
  session.contObiecteInventar = par.Get("CONTObiecteInventar").TextOrEmpty();
  if (const Value& start = par.Get("DATAIN"); !start.IsNull()) session.dataIn = start.AsDateTime();
  if (const Value& end = par.Get("DATASN"); !end.IsNull()) session.dataSn = end.AsDateTime();
}

double Max(double a, double b) {
  return std::max(a, b);
}

long MsgBoxEx(const std::string& prompt, long buttons, const std::string& title,
              long /*helpContext*/, const std::array<std::string, 4>& captions) {
  return ShowMessage({prompt, buttons, title, captions});
}

}  // namespace tevra
