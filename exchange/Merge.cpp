#include "exchange/Merge.h"

#include <algorithm>

#include "platform/data/Command.h"
#include "platform/data/RowReader.h"
#include "platform/text/Numbers.h"
#include "session/Module1.h"

namespace tevra {

namespace {

constexpr const char* kAddPair =
    "INSERT INTO [Terti - Asocieri CS] ( ID_TertSucursala, ID_TertCentru, CodSucursala )  Values(?,"
    "?,?)";
// The same name under another code. A name that several have gives a pair with each.
constexpr const char* kSameName =
    " FROM tmp_Ter INNER JOIN kv_ter ON tmp_Ter.Nume = kv_ter.Nume "
    " WHERE (((tmp_Ter.COD) Not In (select COD from Kv_ter  where Kv_Ter.Nume=tmp_Ter.Nume)))";

std::vector<NewCode> ReadNew(Connection& company, const std::string& sql) {
  std::vector<NewCode> found;
  for (RowReader rows(company, sql); rows.Next();) {
    found.push_back({std::string(rows.Text(0)), std::string(rows.Text(1))});
  }
  return found;
}

void MapSameNames(Connection& company, const std::string& code, ImportChanges& changes) {
  for (RowReader rows(company,
                      std::string("SELECT tmp_Ter.COD, kv_ter.COD, kv_ter.NUME") + kSameName);
       rows.Next();) {
    changes.parties.push_back(
        {rows.Get(0).AsLong(), rows.Get(2).TextOrEmpty(), rows.Get(1).AsLong(), false});
  }
  company.Execute(
      std::string("INSERT INTO [Terti - Asocieri CS] ( ID_TertSucursala, ID_TertCentru, "
                  "CodSucursala )  SELECT tmp_Ter.COD, kv_ter.COD, ?") +
          kSameName,
      {code});
  company.Execute(std::string("delete from tmp_Ter where COD in  (SELECT tmp_Ter.COD ") +
                  kSameName + ")");
}

// A party here without a name would make "Not In" true for none.
std::vector<Values> ReadNewParties(Connection& company) {
  RowReader rows(company,
                 " SELECT *  FROM tmp_Ter  WHERE (((tmp_Ter.NUME) Not In (select Nume from Kv_ter "
                 "where Nume is not null)))");
  std::vector<Values> found;
  while (rows.Next()) {
    Values& row = found.emplace_back(rows.Fields().size());
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = rows.Get(static_cast<int>(i));
  }
  return found;
}

std::string InsertIntoParties(std::size_t columns) {
  std::string marks = "?";
  for (std::size_t i = 1; i < columns; ++i) marks += ",?";
  return "INSERT INTO Kv_Ter VALUES(" + marks + ")";
}

}  // namespace

void PrelCentreCost(Connection& company, ImportChanges& changes) {
  changes.centres =
      ReadNew(company, "select COD, TITLU from tmp_CC where COD not in (select Cod from Kv_CC)");
  company.Execute(
      "INSERT INTO KV_CC select * from tmp_CC where COD not in (select Cod from Kv_CC)");
}

void PrelPlanCont(Connection& company, ImportChanges& changes) {
  constexpr const char* kNew =
      " FROM tmp_PC LEFT JOIN kv_PC ON tmp_PC.CONT = kv_PC.CONT  WHERE kv_PC.CONT Is Null";
  changes.accounts = ReadNew(company, std::string("SELECT tmp_PC.CONT, tmp_PC.TITLU") + kNew);
  company.Execute(
      "update tmp_PC set Creare=NULL,DebitN=0, CreditN=0, CodBug=NULL,DebitN_1=0, CreditN_1=0, "
      "SoldN=0");
  company.Execute(std::string("INSERT INTO kv_PC  SELECT tmp_PC.* ") + kNew);
}

void PrelJurnale(Connection& company, ImportChanges& changes) {
  changes.journals = ReadNew(
      company, "select COD, TITLU from tmp_Jurnale where COD not in (select Cod from Kv_Jur)");
  company.Execute(
      "insert into Kv_Jur select * from tmp_Jurnale where COD not in (select Cod from Kv_Jur)");
}

void PrelTerti(Connection& company, const std::string& code, ImportChanges& changes) {
  MapSameNames(company, code, changes);
  const std::vector<Values> parties = ReadNewParties(company);
  // In a company without named third parties those without a name are new ones too.
  changes.nameless =
      company.QueryValue("SELECT COUNT(*) FROM tmp_Ter WHERE NUME IS NULL").AsLong() -
      std::count_if(parties.begin(), parties.end(), [](const Values& p) { return p[1].IsNull(); });
  std::int16_t last = CInt(Nz(company.QueryValue("select Max(Cod) from Kv_Ter"), 0).AsDouble());
  if (parties.empty()) return;
  Command add(company, InsertIntoParties(parties.front().size()));
  Command addPair(company, kAddPair);
  for (Values party : parties) {
    const int branchCode = party[0].AsLong();
    last = CInt(last + 1.0);
    party[0] = int{last};
    add.Execute(party);
    addPair.Execute({branchCode, int{last}, code});
    changes.parties.push_back({branchCode, party[1].TextOrEmpty(), last, true});
  }
}

void PrelLinii(Connection& company, const ExchangeHeader& header, ImportChanges& changes) {
  const int offset = Nz(company.QueryValue("select max(NDI) from Kv_Linii"), 0).AsLong();
  Transaction transaction(company);
  company.Execute("update tmp_Linii   set CODSucursala=?,CodIE='I', NDI=NDI+?",
                  {header.code, offset});
  // Every import adds the pairs of its own names, so the pair added last has the name that the
  // branch's party has now. A party that has name and code here may have none of this name: then an
  // older one is of a former name and does not count.
  company.Execute(
      "update tmp_Linii set Tert=(select top 1 A.ID_TertCentru from [Terti - Asocieri CS] A where "
      "A.CodSucursala=? and A.ID_TertSucursala=tmp_Linii.Tert order by A.rowid desc) where Tert in "
      "(select ID_TertSucursala from [Terti - Asocieri CS] where CodSucursala=?) and Tert not in "
      "(select T.COD from tmp_Ter T inner join Kv_Ter K on T.COD=K.COD where T.NUME=K.NUME and not "
      "exists (select 1 from [Terti - Asocieri CS] A inner join Kv_Ter N on N.COD=A.ID_TertCentru "
      "where A.CodSucursala=? and A.ID_TertSucursala=T.COD and N.NUME=T.NUME))",
      {header.code, header.code, header.code});
  changes.replaced = company.Execute(
      "delete from Kv_Linii WHERE CodSucursala=? AND CodIE='I' AND DataInr>=? AND DataInr<=?",
      {header.code, header.from, header.to});
  company.Execute("insert into Kv_Linii select * from tmp_Linii");
  transaction.Commit();
}

}  // namespace tevra
