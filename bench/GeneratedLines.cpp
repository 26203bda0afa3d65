#include "bench/GeneratedLines.h"

#include <stdexcept>
#include <string>

#include "bench/BareRows.h"

namespace tevra::bench {

// In the engine's own dialect, where the quotient of whole numbers is whole.
void AddLines(const GeneratedCompany& company, int lines) {
  const std::string notes = std::to_string((lines + 1) / 2);
  sqlite3* db = OpenBare(company.File().string());
  const std::string sql =
      "WITH RECURSIVE N(I) AS (SELECT 0 UNION ALL SELECT I + 1 FROM N WHERE I < " +
      std::to_string(lines - 1) +
      ") INSERT INTO Kv_Linii (NDI, NRLINIE, JURNAL, DATAINR, CONT, DEBIT, CREDIT, DOC, MARCA, "
      "CODBUG, COD, CURS, DEVDEBIT, DEVCREDIT, CANTIT, TERT, PROV, DATASCAD, UTILIZATOR, TIMP, "
      "ID_Formula, DocExplicatie, EXPL) SELECT I / 2 + 1, I % 2 + 1, 'OD', "
      "datetime('2006-01-01', (I / 2 * 365 / " +
      notes +
      ") || ' days'), iif(I % 2, '28' || (10 + I / 2 % 20), '68' || (10 + I / 2 % 40)), "
      "iif(I % 2, 0, I / 2 % 99991 / 100.0), iif(I % 2, I / 2 % 99991 / 100.0, 0), "
      "'IMO' || printf('%02d', I % 12 + 1), 'IMO' || I % 997, 'CC' || (I % 400 + 1), 'LEI', 0, 0, "
      "0, 1, I % 500 + 1, 'I', '2006-12-31 00:00:00', 'admin', '2006-12-31 10:20:30', 0, "
      "'Factura ' || I % 9973, 'Amortizare imobilizari' FROM N";
  const int code = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
  sqlite3_close(db);
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
}

}  // namespace tevra::bench
