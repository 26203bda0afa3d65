#include "reference/ThirdParties.h"

#include "platform/data/Command.h"
#include "platform/data/Recordset.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"

namespace tevra {

namespace {

constexpr const char* kFields =
    "Select COD,NUME,TIP,CODFISCAL,AD,CP,ORAS,TARA,REPREZ,TELEFON,FAX,EMAIL,ADL,CPL,ORASL,TARAL,"
    "BANCA,CONTBANCAR,CT from kv_ter";

Value OrNull(const std::string& text) {
  return text.empty() ? Value() : Value(text);
}

Recordset OpenParty(Connection& company, const std::string& code) {
  return company.OpenRecordset(std::string(kFields) + " where COD = clng(?)", {code});
}

void SetFields(Recordset& row, const Party& party, const std::string& countryCode) {
  for (std::size_t i = party::kName; i < party::kCount; ++i) {
    row.Set(kPartyFields[i], OrNull(party.text[i]));
  }
  row.Set("CT", OrNull(countryCode));
}

}  // namespace

std::string PartyListStatement() {
  return "Select COD,NUME,TIP,CODFISCAL,AD,CP,ORAS,TARA,REPREZ,TELEFON,FAX,EMAIL,ADL,CPL,ORASL,"
         "TARAL,BANCA,CONTBANCAR, SOLD,CT from kv_ter";
}

bool IsPartyKind(std::string_view kind) {
  const std::string letter = Trim(kind);
  return letter == "F" || letter == "C" || letter == "M";
}

std::optional<Party> ReadParty(Connection& company, const std::string& code) {
  const Recordset row = OpenParty(company, code);
  if (row.Eof()) return std::nullopt;
  Party party;
  for (std::size_t i = 0; i < party::kCount; ++i) {
    party.text[i] = row.Get(kPartyFields[i]).TextOrEmpty();
  }
  party.countryCode = row.Get("CT").TextOrEmpty();
  if (party.countryCode.empty()) party.countryCode = kHomeCountry;
  return party;
}

// Nobody else can take the number between its reading and the commit.
std::int32_t AddParty(Connection& company, const Party& party) {
  Transaction transaction(company);
  const auto code = static_cast<std::int32_t>(GetNextNumber("kv_ter"));
  Recordset row = company.OpenRecordset(std::string(kFields) + " Where 1 = 0");
  row.AddNew();
  row.Set("COD", code);
  SetFields(row, party, party.countryCode);
  row.Update();
  transaction.Commit();
  return code;
}

bool ChangeParty(Connection& company, const Party& party) {
  Transaction transaction(company);
  Recordset row = OpenParty(company, party.text[party::kCode]);
  if (row.Eof()) return false;
  SetFields(row, party, party.countryCode.empty() ? kHomeCountry : party.countryCode);
  row.Update();
  transaction.Commit();
  return true;
}

// Nobody else can add a line for it between the check and the commit.
bool DeleteParty(Connection& company, const std::string& code) {
  Transaction transaction(company);
  if (ExistaInTabela(code, "TertiLinii")) return false;
  company.Execute("Delete from kv_ter where COD = clng(?)", {code});
  transaction.Commit();
  return true;
}

const std::vector<ReferenceUser>& UsersOfParty() {
  static const std::vector<ReferenceUser> kUsers{{"I_IMO", {"COD_FURNIZOR", "ID_Client"}},
                                                 {"I_INV", {"COD_FURNIZOR"}}};
  return kUsers;
}

int UpdateBalances(Connection& company) {
  Transaction transaction(company);
  Command update(company, "Update kv_ter Set SOLD =CDbl(?) Where COD = Clng(?)");
  int written = 0;
  for (Recordset rows = company.OpenRecordset(
           "Select TERT, SUM(DEBIT), SUM(CREDIT) from kv_Linii GROUP BY TERT, CONT HAVING "
           "(Left(CONT,1) = '4' AND (TERT IS NOT NULL))");
       !rows.Eof(); rows.MoveNext()) {
    const double balance = Nz(rows.Get(1)).AsDouble() - Nz(rows.Get(2)).AsDouble();
    update.Execute({balance, rows.Get(0)});
    ++written;
  }
  transaction.Commit();
  return written;
}

}  // namespace tevra
