#include "accounting/DocumentUse.h"

#include <algorithm>
#include <map>

#include "platform/data/MoneySum.h"
#include "platform/data/RowReader.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"

namespace tevra {

namespace {

// The notes of one journal.
struct JournalNotes {
  int notes = 0;
  MoneySum lei;
};

}  // namespace

DocumentUse NotesUnder(Connection& connection, const std::string& document,
                       const std::vector<std::string>& own) {
  std::map<std::string, JournalNotes> journals;
  RowReader rows(connection,
                 "SELECT JURNAL, NDI, SUM(DEBIT) AS LEI FROM Kv_Linii WHERE DOC = ? GROUP BY "
                 "JURNAL, NDI",
                 {document});
  const int journal = rows.Column("JURNAL");
  const int lei = rows.Column("LEI");
  while (rows.Next()) {
    JournalNotes& notes = journals[UCase(rows.Text(journal))];
    ++notes.notes;
    notes.lei.Add(rows.Number(lei).value_or(0));
  }
  DocumentUse use{document};
  MoneySum sum;
  for (const auto& [name, notes] : journals) {
    const bool isOwn = std::find(own.begin(), own.end(), name) != own.end();
    if (isOwn && notes.notes == 1) continue;
    use.notes += notes.notes;
    sum.Add(notes.lei.Total());
  }
  use.lei = sum.Total();
  return use;
}

void RequireUnchanged(const DocumentUse& agreed, const DocumentUse& now) {
  if (now.notes == agreed.notes && now.lei == agreed.lei) return;
  throw Failure(kRowChanged, "Notele contabile sub documentul \"" + now.document +
                                 "\" s-au schimbat intre timp; salvati din nou");
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
