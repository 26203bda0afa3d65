#include "tests/dialect/Company.h"

#include <memory>

#include "platform/dialect/Functions.h"

namespace tevra::dialect {

namespace {

// Rows that show a wrong reading: Nulls in joined texts, other case, codes without partners.
const char* const kCompany = R"sql(
CREATE TABLE kv_pc (CONT TEXT(16) COLLATE NOCASE, TITLU TEXT(40) COLLATE NOCASE, DEBITN DOUBLE, CREDITN DOUBLE,
  CODBUG TEXT(16) COLLATE NOCASE, CREARE TEXT(255) COLLATE NOCASE, DEBITN_1 DOUBLE, CREDITN_1 DOUBLE, SOLDN DOUBLE);
INSERT INTO kv_pc (CONT, TITLU) VALUES ('6811', 'Amortizare'), ('2131', 'Echipamente'), ('12', 'Scurt'),
  ('4111', 'CLIENTI interni'), ('758', NULL);
CREATE TABLE kv_cote (COD INTEGER, CONT TEXT(16) COLLATE NOCASE, PROCENT DOUBLE);
INSERT INTO kv_cote VALUES (1, '4426', 19), (2, '4427', 9.5), (3, 'Tva deductibila', 0), (4, NULL, 5), (5, '4426.5', NULL);
CREATE TABLE kv_jur (COD TEXT(3) COLLATE NOCASE, TITLU TEXT(40) COLLATE NOCASE, TIP TEXT(1) COLLATE NOCASE, CODOPER INTEGER);
INSERT INTO kv_jur VALUES ('JV', 'Vanzari', 'V', 7), ('JC', 'Cumparari', 'c', NULL), ('OD', NULL, 'D', 5);
CREATE TABLE kv_ter (COD INTEGER, NUME TEXT(40) COLLATE NOCASE, TIP TEXT(1) COLLATE NOCASE, UTILIZABIL TEXT(1) COLLATE NOCASE, SOLD DOUBLE);
INSERT INTO kv_ter (COD, NUME, TIP, UTILIZABIL) VALUES (1, 'Alfa', 'F', 'D'), (2, 'beta', 'm', 'd'), (3, 'Gama', 'C', 'D'), (4, NULL, 'F', 'N');
CREATE TABLE kv_cc (COD TEXT(16) COLLATE NOCASE, TITLU TEXT(30) COLLATE NOCASE, UTILIZABIL TEXT(1) COLLATE NOCASE);
INSERT INTO kv_cc VALUES ('10', 'Productie', 'D'), ('20', 'Vechi', 'n');
CREATE TABLE I_LOCALIZARE (COD TEXT(11) COLLATE NOCASE, TITLU TEXT(30) COLLATE NOCASE);
INSERT INTO I_LOCALIZARE VALUES ('h1', 'Hala 1'), ('H2', 'Hala 2');
CREATE TABLE kv_val (COD TEXT(255) COLLATE NOCASE, TITLU TEXT(255) COLLATE NOCASE);
CREATE TABLE kv_val2 (COD TEXT(255) COLLATE NOCASE, DATA DATETIME, CURS DOUBLE);
INSERT INTO kv_val2 VALUES ('EUR', '2005-01-01 00:00:00', 3.9), ('EUR', '2005-01-01 10:30:00', 3.8), ('EUR', '2005-01-03 00:00:00', 3.7),
  ('EUR', '2004-12-31 00:00:00', 4.0), ('USD', '2005-01-01 00:00:00', 3.0), ('EUR', NULL, 1);
CREATE TABLE kv_par (CONTFURNIZORI TEXT(16) COLLATE NOCASE);
CREATE TABLE I_VALIM (DATVALIM DATETIME, VALIM DOUBLE);
INSERT INTO I_VALIM VALUES ('2002-01-01 00:00:00', 8000000), ('2004-01-01 00:00:00', 15000000);
CREATE TABLE I_CONTURIIM (CONT TEXT(16) COLLATE NOCASE, CONT_CHELT TEXT(16) COLLATE NOCASE, CONT_AMO TEXT(16) COLLATE NOCASE);
INSERT INTO I_CONTURIIM VALUES ('2131', '6811', '2813'), ('303', NULL, NULL);
CREATE TABLE I_CLASIFICARE (COD_GR TEXT(11) COLLATE NOCASE, DEN_GR TEXT(40) COLLATE NOCASE, DURNOR DOUBLE, COD_GR_NOU TEXT(11) COLLATE NOCASE,
  LIM_INF DOUBLE, DURNOR_NOU DOUBLE);
INSERT INTO I_CLASIFICARE VALUES ('2.1', 'Masini', 10, '2.1.1', 8, 0), ('2.2', 'Utilaje', 8, '2.2.9', NULL, 6), ('2.3', NULL, 0, '2.3.3', 4, 4);
CREATE TABLE I_PLANAMO (ID INTEGER, AN SMALLINT, VALAMO DOUBLE);
INSERT INTO I_PLANAMO VALUES (1, 2004, 10), (1, 2005, 20);
CREATE TABLE I_IMO (NRCRT INTEGER, COD TEXT(20) COLLATE NOCASE, DENUMIRE TEXT(50) COLLATE NOCASE, DATA_ACH DATETIME,
  COD_FURNIZOR INTEGER, COD_GR TEXT(11) COLLATE NOCASE, COD_GR_NOU TEXT(11) COLLATE NOCASE, COD_CC TEXT(16) COLLATE NOCASE,
  COD_LOC TEXT(11) COLLATE NOCASE, CONT TEXT(16) COLLATE NOCASE, DATA_CALCUL DATETIME, VAL_CUMP DOUBLE, VAL_CUMP_VAL DOUBLE, CURS DOUBLE,
  COTAL_LUNARA DOUBLE, VAL_AMOR_CUMULATA DOUBLE, VAL_AMOR_CUMULATA_VAL DOUBLE, VAL_RAMASA DOUBLE, VAL_RAMASA_VAL DOUBLE, VALCHELEI DOUBLE,
  VALCHEVAL DOUBLE, BLOCATA YESNO, VAL_BLOCATA DOUBLE, VAL_BLOCATA_VAL DOUBLE, IESIRE YESNO, VAL_IESIRE DOUBLE, VAL_RAMASA_IESIRE DOUBLE,
  VALCONSERVARE DOUBLE);
INSERT INTO I_IMO (NRCRT, COD, DENUMIRE, DATA_ACH, COD_FURNIZOR, COD_GR, COD_CC, COD_LOC, CONT, DATA_CALCUL) VALUES
  (3, 'c3', 'strung mare', '2005-07-01 00:00:00', 1, '2.1', '10', 'h1', '2131', '2005-11-30 00:00:00'),
  (1, 'A1', 'Strung', '2005-06-30 23:59:59', 2, '2.2', '10', 'H1', '2131', '2005-12-31 00:00:00'),
  (2, 'b2', 'Freza', '2004-01-15 00:00:00', 99, '9.9', '99', NULL, '2999', NULL);
UPDATE I_IMO SET VAL_CUMP=1200, VAL_AMOR_CUMULATA=200, VAL_RAMASA=824, VALCHELEI=100, COTAL_LUNARA=0.25, BLOCATA=0, VAL_BLOCATA=500,
  VAL_CUMP_VAL=600, VAL_AMOR_CUMULATA_VAL=64, VAL_RAMASA_VAL=448, VALCHEVAL=40, VAL_BLOCATA_VAL=80, IESIRE=0;
UPDATE I_IMO SET BLOCATA=-1 WHERE NRCRT=3;
UPDATE I_IMO SET VAL_AMOR_CUMULATA=NULL WHERE NRCRT=2;
CREATE TABLE I_INV (nrcrt INTEGER, cod TEXT(20) COLLATE NOCASE, denumire TEXT(50) COLLATE NOCASE, cod_cc TEXT(16) COLLATE NOCASE,
  cod_loc TEXT(11) COLLATE NOCASE, cod_furnizor INTEGER, cont TEXT(16) COLLATE NOCASE, DOCUMENT TEXT(15) COLLATE NOCASE, data_ach DATETIME,
  data_pf DATETIME, val_cump DOUBLE, val_cump_val DOUBLE, curs DOUBLE, OBS1 TEXT(100) COLLATE NOCASE, cod_tva_cump INTEGER, Blocata YESNO,
  pers TEXT(50) COLLATE NOCASE);
INSERT INTO I_INV (nrcrt, cod, denumire, cod_cc, cod_loc, cod_furnizor, cont, data_ach, val_cump, val_cump_val, cod_tva_cump, Blocata, pers) VALUES
  (1, 's1', 'scaun', '10', 'H1', 1, '2131', '2005-01-01 00:00:00', 100, 10, 1, 0, 'Ion'),
  (2, 's2', 'Scaun', '77', NULL, NULL, '303', '2005-12-31 00:00:00', 200, 20, 4, 0, NULL),
  (3, 'm1', 'Masa', '20', '10', 3, '758', '2006-01-01 00:00:00', 300, 30, 9, 0, 'Ana');
CREATE TABLE Kv_Linii (NDI INTEGER, NRLINIE INTEGER, JURNAL TEXT(3) COLLATE NOCASE, DATAINR DATETIME, CONT TEXT(16) COLLATE NOCASE, DEBIT DOUBLE,
  CREDIT DOUBLE, DOC TEXT(255) COLLATE NOCASE, TERT INTEGER, CODCC TEXT(16) COLLATE NOCASE, CodIE TEXT(1) COLLATE NOCASE,
  CodSucursala TEXT(2) COLLATE NOCASE);
INSERT INTO Kv_Linii VALUES (1, 1, 'JC', '2005-01-01 00:00:00', '4111', 50, 0, 'IMO07', 1, '10', NULL, NULL),
  (1, 2, 'JC', '2005-01-01 00:00:00', '6811', 0, 50, 'IMO07', NULL, '99', 'E', NULL),
  (2, 1, 'OD', '2005-01-31 00:00:00', '4111', 70, 30, 'A''1', 1, NULL, 'e', NULL),
  (3, 1, 'OD', '2005-02-01 00:00:00', '401', 0, 9, 'imo07', 2, NULL, 'I', '02'),
  (4, 1, 'OD', '2004-12-31 00:00:00', '401', 0, 8, 'X', 88, NULL, 'I', '03');
CREATE TABLE [Terti - Asocieri CS] (ID_TertSucursala INTEGER, ID_TertCentru INTEGER, CodSucursala TEXT(2) COLLATE NOCASE);
)sql";

struct Finalize {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

void Bind(sqlite3_stmt* statement, const Parameters& parameters) {
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const int index = static_cast<int>(i) + 1;
    if (const auto* whole = std::get_if<int>(&parameters[i])) {
      sqlite3_bind_int(statement, index, *whole);
    } else if (const auto* number = std::get_if<double>(&parameters[i])) {
      sqlite3_bind_double(statement, index, *number);
    } else {
      sqlite3_bind_text(statement, index, std::get<const char*>(parameters[i]), -1, SQLITE_STATIC);
    }
  }
}

std::string Line(sqlite3_stmt* statement) {
  std::string line;
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
    line += (i > 0 ? "|" : "") + std::string(text ? text : "NULL");
  }
  return line;
}

}  // namespace

Company::Company() {
  sqlite3_open(":memory:", &db_);
  RegisterFunctions(db_, &pending_);
  Engine(kCompany);
  for (const char* table : {"kv_ter", "kv_pc", "kv_cc", "Kv_Linii"}) {
    std::string sql = Rows("SELECT sql FROM sqlite_master WHERE name = ?", {table}).front();
    Engine(sql.replace(sql.find(table), 3, "tmp_"));
  }
}

Company::~Company() {
  sqlite3_close(db_);
}

Lines Company::Rows(const std::string& sql, const Parameters& parameters, Options options) {
  const Statement statement(Prepare(sql, std::move(options)));
  Bind(statement.get(), parameters);
  Lines rows;
  int code = SQLITE_OK;
  while ((code = sqlite3_step(statement.get())) == SQLITE_ROW)
    rows.push_back(Line(statement.get()));
  if (code != SQLITE_DONE) Fail();
  return rows;
}

std::string Company::Columns(const std::string& sql, Options options) {
  const Statement statement(Prepare(sql, std::move(options)));
  std::string names;
  for (int i = 0; i < sqlite3_column_count(statement.get()); ++i) {
    names += (i > 0 ? "|" : "") + std::string(sqlite3_column_name(statement.get(), i));
  }
  return names;
}

int Company::Run(const std::string& sql, const Parameters& parameters) {
  Rows(sql, parameters);
  return sqlite3_changes(db_);
}

void Company::Engine(const std::string& sql) {
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

sqlite3_stmt* Company::Prepare(const std::string& sql, Options options) {
  const std::string unknown = "no such column: ";
  for (;;) {
    sqlite3_stmt* statement = nullptr;
    const std::string text = Rewrite(sql, options).sql;
    if (sqlite3_prepare_v2(db_, text.c_str(), -1, &statement, nullptr) == SQLITE_OK)
      return statement;
    const std::string message = sqlite3_errmsg(db_);
    const std::string name = message.rfind(unknown, 0) == 0 ? message.substr(unknown.size()) : "";
    if (name.empty() || !IsListAlias(sql, name) || options.expandAliases.size() > 20) Fail();
    options.expandAliases.push_back(name);
  }
}

void Company::Fail() {
  if (!pending_) throw Failure(kStatementError, sqlite3_errmsg(db_));
  const Failure failure = *pending_;
  pending_.reset();
  throw failure;
}

long FailureOf(Company& company, const std::string& sql) {
  try {
    company.Rows(sql);
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

}  // namespace tevra::dialect
