#include "accounting/Note.h"

#include "platform/text/Numbers.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

std::string NoteLine::Credit() const {
  return CStr(credit_);
}

void NoteLine::SetCredit(const std::string& text) {
  credit_ = Value(text).AsDouble();
}

std::string TooLargeText(const std::string& what) {
  return what + " este prea mare: cel mult 12 cifre inaintea virgulei !";
}

NoteLine LineOf(const std::string& journal, const std::string& document, const DateTime& date) {
  NoteLine line;
  line.Jurnal = journal;
  line.Doc = line.Marca = document;
  line.DataInr = date.Midnight();
  line.Cantit = 1;
  line.Prov = "I";
  line.Utilizator = CurrentSession().userName;
  line.CodSucursala = GetCodSocietate();
  return line;
}

void Add(Note& note, const NoteLine& line) {
  if (line.Debit != 0 || line.CreditAmount() != 0) note.push_back(line);
}

}  // namespace tevra
