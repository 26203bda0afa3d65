#include "reference/Turnovers.h"

#include "platform/data/Command.h"
#include "platform/data/Recordset.h"
#include "session/Module1.h"

namespace tevra {

int UpdateTurnovers(Connection& company) {
  Transaction transaction(company);
  Command update(company, "Update kv_PC Set DEBITN =CDbl(?), CREDITN = CDbl(?) Where CONT = ?");
  int accounts = 0;
  for (Recordset rows = company.OpenRecordset(
           "Select CONT, SUM(DEBIT), SUM(CREDIT) from kv_Linii GROUP BY CONT");
       !rows.Eof(); rows.MoveNext()) {
    update.Execute({Nz(rows.Get(1)), Nz(rows.Get(2)), rows.Get(0)});
    ++accounts;
  }
  transaction.Commit();
  return accounts;
}

}  // namespace tevra
