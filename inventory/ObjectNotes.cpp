#include "inventory/ObjectNotes.h"

#include "accounting/VatRate.h"
#include "accounting/cBLLNoteContabile.h"
#include "platform/data/Recordset.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using namespace object;

NoteLine LineOfObject(const char* journal, const ObjectCard& card, Date day) {
  NoteLine line = LineOf(journal, ObjectDocument(card), card.date[day]);
  line.Curs = NumberOrZero(card, kRate);
  return line;
}

void AddLine(Note& note, NoteLine line, const std::string& account, double debit, double credit) {
  line.Cont = account;
  line.Debit = debit;
  line.SetCredit(CStr(credit));
  Add(note, line);
}

void Write(const Connection& connection, const Note& note) {
  cBLLNoteContabile writer;
  NoteChecker checker;
  writer.AddNote(connection, note, checker);
  checker.Finish();
}

}  // namespace

std::string ObjectDocument(const ObjectCard& card) {
  return "IMO" + card.text[kCode];
}

// ---- Purchase -----------------------------------------------------------------------------------

// The credit is the sum of what is debited, so that half a ban in the value cannot leave the note
// out of balance.
Note PurchaseNote(const ObjectCard& card) {
  Note note;
  if (card.scrapped) return note;
  const double lei = NumberOrZero(card, kValue);
  const double value = RoundTo(lei, 2);
  const double tax = RoundTo(lei * VatPercent(card.vat) / 100, 2);
  NoteLine line = LineOfObject("JC", card, kBought);
  line.CodBUG = card.text[kCentre];
  NoteLine supplier = line;
  const std::string& third = card.text[kSupplier];
  if (!third.empty()) supplier.Tert = third;
  AddLine(note, supplier, CurrentSession().contFurnizori, 0, RoundTo(value + tax, 2));
  AddLine(note, line, card.vat.substr(0, card.vat.find('-')), tax, 0);
  AddLine(note, line, CurrentSession().contObiecteInventar, value, 0);
  return note;
}

DocumentUse NotesBeforePurchase(const ObjectCard& card) {
  Connection connection(CurrentSession().connectionString);
  return NotesUnder(connection, ObjectDocument(card));
}

Note pAddNoteContabile(const ObjectCard& card, const DocumentUse& agreed) {
  Note note = PurchaseNote(card);
  if (card.scrapped) return note;
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  RequireUnchanged(agreed, NotesUnder(connection, ObjectDocument(card)));
  connection.Execute("DELETE FROM Kv_LINII WHERE DOC=?", {ObjectDocument(card)});
  Write(connection, note);
  transaction.Commit();
  return note;
}

// ---- Write-off ----------------------------------------------------------------------------------

Note WriteOffNote(const ObjectCard& card, const std::string& expenseAccount) {
  if (card.number[kValue].IsNull()) throw Failure(kTypeMismatch, "Type mismatch");
  const double value = RoundTo(card.number[kValue].AsDouble(), 2);
  const NoteLine line = LineOfObject("OD", card, kInService);
  Note note;
  AddLine(note, line, card.text[kAccount], 0, value);
  AddLine(note, line, expenseAccount, value, 0);
  return note;
}

std::optional<std::string> ExpenseAccountOf(Connection& connection, const std::string& account) {
  const Value found =
      connection.QueryValue("SELECT Cont_Chelt FROM I_CONTURIIM WHERE Cont=?", {account});
  if (found.IsNull()) return std::nullopt;
  return found.AsText();
}

std::optional<ObjectRefusal> RefusalToWriteOff(const ObjectCard& card, bool writtenOff) {
  if (writtenOff) {
    return ObjectRefusal{"Obiectul de inventar este descarcat, nu il mai puteti descarca",
                         kInformation};
  }
  const Session& session = CurrentSession();
  const DateTime day = card.date[kInService].Midnight();
  if (day >= session.dataIn && day <= session.dataSn) return std::nullopt;
  return ObjectRefusal{"Data punerii functiune trebuie sa fie in intervalul: " +
                           ShortDate(session.dataIn) + " - " + ShortDate(session.dataSn),
                       kOkOnly, ObjectRefusal::Box::kInService};
}

ObjectRefusal NoExpenseAccount(const ObjectCard& card) {
  return {"Nu exista cont de cheltuiala asociat contului: " + card.text[kAccount], kExclamation};
}

WriteOffResult WriteOff(const ObjectCard& card, std::int32_t id) {
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  const Recordset rows = connection.OpenRecordset("SELECT Blocata FROm I_INV WHERE NRCRT=?", {id});
  if (rows.Eof()) return {ObjectRefusal{"Obiectul de inventar nu exista", kCritical}, {}};
  if (Nz(rows.Get(0), Value::YesNo(false)).AsBool()) {
    return {ObjectRefusal{"Obiectul de inventar a fost pus in functiune", kExclamation}, {}};
  }
  const auto expense = ExpenseAccountOf(connection, card.text[kAccount]);
  if (!expense) return {NoExpenseAccount(card), {}};
  WriteOffResult result{std::nullopt, WriteOffNote(card, *expense)};
  Write(connection, result.note);
  connection.Execute("UPDATE I_INV SET Blocata=TRUE WHERE NrCrt=?", {id});
  transaction.Commit();
  return result;
}

}  // namespace tevra
