#include "app/batch/Entries.h"

#include "app/batch/Refusal.h"
#include "platform/data/Recordset.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra::batch {

Entry PickEntry(Connection& company, const char* statement, const char* boundColumn,
                const char* listField, const std::string& written, const char* what) {
  if (written.empty()) return {};
  Recordset rows = company.OpenRecordset(statement);
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string code = rows.Get(boundColumn).TextOrEmpty();
    if (EqualNoCase(code, written)) return {code, rows.Get(listField).TextOrEmpty()};
  }
  throw Refusal(std::string(what) + " " + written + " nu exista in lista !");
}

Value NumberFrom(const std::string& written) {
  if (Trim(written).empty()) return {};
  return IsNumeric(written) ? Value(CDbl(written)) : Value(written);
}

}  // namespace tevra::batch
