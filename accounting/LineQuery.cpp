#include "accounting/LineQuery.h"

#include <algorithm>

#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr const char* kTable = "Kv_Linii";
constexpr const char* kNewestFirst = "order by DATAINR DESC, NDI DESC, NRLINIE";

struct Named {
  const char* field;
  const char* text;
};

constexpr std::array<Named, 12> kCaptions{{
    {"CodSucursala", "COD SUCURSALA"},
    {"DevCredit", "CREDIT VALUTA"},
    {"DevDebit", "DEBIT VALUTA"},
    {"Expl", "EXPLICATIE"},
    {"CodBug", "CENTRU DE COST"},
    {"CODIE", "Import\\Export"},
    {"DataInr", "DATA INREGISTRARE"},
    {"DataScad", "DATA SCADENTA"},
    {"Prov", "PROVENIENTA"},
    {"Timp", "DATA VALIDARII"},
    {"TVA_Linref", "LINIA cu BAZA ptr TVA"},
    {"DocExplicatie", "EXPL. DOCUMENT"},
}};

constexpr std::array<Named, 3> kLists{{
    {"CONT", "select Cont,Titlu from Kv_PC order by Cont"},
    {"Jurnal", "select COD, Titlu from Kv_Jur order by COD"},
    {"Tert", "select COD,Nume from Kv_Ter order by Nume"},
}};

template <class Table>
const char* TextOf(const Table& table, const std::string& field) {
  const auto found = std::find_if(table.begin(), table.end(), [&](const Named& named) {
    return EqualNoCase(std::string(kTable) + "." + named.field, field);
  });
  return found == table.end() ? nullptr : found->text;
}

std::string AllLines(const std::string& lastFields) {
  return "select NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, EXPL, DOC, MARCA, LITM, "
         "CODBUG, kv_linii.COD, CURS, DEVDEBIT, DEVCREDIT, CANTIT, kv_ter.NUME, TVA_LINREF, "
         "COTATVA, PROV , KV_LINII.DATASCAD, KV_LINII.UTILIZATOR, TIMP, " +
         lastFields + " from KV_LINII LEFT OUTER JOIN kv_ter ON kv_linii.TERT = kv_ter.COD " +
         kNewestFirst;
}

}  // namespace

std::vector<WhereField> LineFields(const Connection& connection) {
  std::vector<WhereField> fields =
      WhereFieldsOf(connection, kTable, {"CODCC", "CANTIT", "CODOPER", "ID_FORMULA", "NRLINIE"});
  for (WhereField& field : fields) {
    if (const char* caption = TextOf(kCaptions, field.name)) field.caption = caption;
    if (const char* list = TextOf(kLists, field.name)) field.list = list;
  }
  // The currency comes last and under a name of its own.
  const auto currency = std::find_if(fields.begin(), fields.end(), [](const WhereField& field) {
    return EqualNoCase(field.name, "Kv_Linii.COD");
  });
  if (currency != fields.end()) {
    currency->caption = "DEVIZA";
    std::rotate(currency, currency + 1, fields.end());
  }
  return fields;
}

std::string LinesAtOpening() {
  return AllLines("CodSucursala,DocExplicatie");
}

std::string LinesAfterDeletion() {
  return AllLines("CodSucursala");
}

std::string LinesWhere(const WhereClause& clause) {
  return " SELECT Kv_Linii.*,Kv_Ter.Nume, Kv_CC.Titlu "
         " FROM (kv_LINII  left JOIN  kv_ter ON kv_ter.COD = kv_LINII.TERT) LEFT JOIN kv_CC ON "
         "kv_LINII.CODCC = kv_CC.COD" +
         (clause.sql.empty() ? std::string() : " Where " + clause.sql) + " " + kNewestFirst;
}

std::string LinesTitle(const WhereClause& clause) {
  return clause.text.empty() ? "R A P O R T" : "R A P O R T     CONDITII: " + clause.text;
}

bool IsFromStock(const std::string& source) {
  return source == "G";
}

std::int64_t DeleteNote(Connection& connection, std::int32_t note) {
  Transaction transaction(connection);
  const std::int64_t lines = connection.Execute("Delete from Kv_Linii where NDI=?", {note});
  transaction.Commit();
  return lines;
}

}  // namespace tevra
