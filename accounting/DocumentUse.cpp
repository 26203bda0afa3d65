#include "accounting/DocumentUse.h"

#include "platform/data/Recordset.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"

namespace tevra {

DocumentUse NotesUnder(Connection& connection, const std::string& document,
                       const std::vector<std::string>& own) {
  std::string condition = "DOC = ?";
  Values values{document};
  for (const std::string& journal : own) {
    condition += " AND JURNAL <> ?";
    values.push_back(journal);
  }
  const Recordset rows = connection.OpenRecordset(
      "SELECT COUNT(*) AS NOTE, SUM(LEI) AS TOTAL FROM (SELECT NDI, SUM(DEBIT) AS LEI FROM "
      "Kv_Linii WHERE " +
          condition + " GROUP BY NDI) Q",
      values);
  return {document, CLng(rows.Get("NOTE").AsDouble()), Nz(rows.Get("TOTAL")).AsDouble()};
}

bool MayDelete(const DocumentUse& use) {
  if (use.notes == 0) return true;
  const std::string notes =
      use.notes == 1 ? "o nota contabila" : std::to_string(use.notes) + " note contabile";
  return MsgBoxEx("Sub documentul \"" + use.document + "\" exista deja " + notes + ", in suma de " +
                      Format(use.lei, "#.##0,00") +
                      " lei, care nu provin din aceasta operatie. Salvarea le sterge. Doriti sa "
                      "continuati?",
                  kYesNo | kExclamation | kDefaultStep, "Document folosit") == kYes;
}

}  // namespace tevra
