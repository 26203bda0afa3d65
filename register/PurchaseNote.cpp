#include "register/PurchaseNote.h"

#include "accounting/MonthDocument.h"
#include "accounting/NoteChecker.h"
#include "accounting/VatRate.h"
#include "accounting/cBLLNoteContabile.h"
#include "platform/data/Recordset.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using enum text::Place;
using enum number::Place;
using enum date::Place;

constexpr const char* kPurchases = "JC";

bool Finds(Connection& connection, const std::string& sql, const Values& values) {
  return connection.QueryValue(sql, values).AsLong() > 0;
}

// True when the note of purchases under `code` can only be that of the asset: an object writes
// under "IMO" and its code, a month under "IMO" and its number.
bool IsOnlyUser(Connection& connection, const std::string& code, std::int32_t nrCrt) {
  constexpr std::size_t kPrefix = 3;
  if (IsChargeDocument(code)) return false;
  if (Finds(connection, "SELECT COUNT(*) FROM I_IMO WHERE COD = ? AND NRCRT <> ?", {code, nrCrt})) {
    return false;
  }
  return !EqualNoCase(code.substr(0, kPrefix), "IMO") ||
         !Finds(connection, "SELECT COUNT(*) FROM I_INV WHERE COD = ?", {code.substr(kPrefix)});
}

// Several notes, or one that something else may have written: nobody can tell which is the asset's.
std::optional<OldPurchaseNote> FindOldNote(Connection& connection, const std::string& code,
                                           std::int32_t nrCrt) {
  if (code.empty() || !IsOnlyUser(connection, code, nrCrt)) return std::nullopt;
  const Recordset notes = connection.OpenRecordset(
      "SELECT NDI, SUM(DEBIT) AS LEI FROM Kv_Linii WHERE DOC = ? AND JURNAL = ? GROUP BY NDI",
      {code, kPurchases});
  if (notes.RecordCount() != 1) return std::nullopt;
  return OldPurchaseNote{notes.Get("NDI").AsLong(), code, Nz(notes.Get("LEI")).AsDouble()};
}

double NumberOrZero(const Value& box) {
  return box.IsNull() ? 0 : box.AsDouble();
}

// A line with both amounts 0 stays in the note: writing it is refused, and the user is told.
Note PurchaseNoteOf(const AssetCard& card) {
  const VatRate vat = ReadVatRate(card.tva);
  const double lei = NumberOrZero(card.number[kValue]);
  const double foreign = NumberOrZero(card.number[kForeignValue]);
  NoteLine line = LineOf(kPurchases, card.text[kCode], card.date[kInService].Midnight());
  line.Curs = NumberOrZero(card.number[kExchangeRate]);
  line.CotaTVA = CByte(vat.percent);
  line.cod = CurrentSession().codDeviza;
  line.CodBUG = card.text[kCostCentre];
  line.Cont = card.text[kAccount];
  double total = line.Debit = RoundTo(lei, 2);
  double foreignTotal = line.DevDebit = RoundTo(foreign, 2);
  Note note{line};
  if (vat.percent != 0) {
    line.Cont = vat.account;
    total += line.Debit = RoundTo(lei * vat.percent / 100, 2);
    foreignTotal += line.DevDebit = RoundTo(foreign * vat.percent / 100, 2);
    note.push_back(line);
  }
  line.Cont = CurrentSession().contFurnizori;
  line.Debit = line.DevDebit = 0;
  line.SetCredit(CStr(total));
  line.DevCredit = foreignTotal;
  if (!card.text[kSupplier].empty()) line.Tert = card.text[kSupplier];
  note.push_back(line);
  return note;
}

void WriteNote(const Connection& connection, const AssetCard& card) {
  cBLLNoteContabile writer;
  NoteChecker checker;
  writer.AddNote(connection, PurchaseNoteOf(card), checker);
  checker.Finish();
}

}  // namespace

PurchaseNoteUse FindPurchaseNoteUse(Connection& connection, const std::string& code,
                                    const std::optional<std::int32_t>& nrCrt) {
  PurchaseNoteUse use;
  if (nrCrt) {
    const std::string stored =
        connection.QueryValue("SELECT COD FROM I_IMO WHERE NRCRT = ?", {*nrCrt}).TextOrEmpty();
    if (!EqualNoCase(stored, code)) {
      use.old = FindOldNote(connection, stored, *nrCrt);
    } else if (IsOnlyUser(connection, code, *nrCrt)) {
      use.own = {kPurchases};
    }
  }
  use.others = NotesUnder(connection, code, use.own);
  return use;
}

bool MaySavePurchaseNote(PurchaseNoteUse& use) {
  if (!MayDelete(use.others)) return false;
  if (!use.old) return true;
  use.deleteOld = MsgBoxEx("Codul imobilizarii s-a schimbat. Sub codul vechi \"" +
                               use.old->document + "\" este nota ei de cumparare, in suma de " +
                               Format(use.old->lei, "#.##0,00") + " lei. Doriti sa fie stearsa?",
                           kYesNo | kQuestion | kDefaultStep, "Cod schimbat") == kYes;
  return true;
}

void pAddNoteContabile(const AssetCard& card, const PurchaseNoteUse& agreed) {
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  RequireUnchanged(agreed.others, NotesUnder(connection, card.text[kCode], agreed.own));
  connection.Execute("DELETE FROM Kv_LINII WHERE DOC=?", {card.text[kCode]});
  if (agreed.old && agreed.deleteOld) {
    connection.Execute("DELETE FROM Kv_LINII WHERE NDI=? AND DOC=? AND JURNAL=?",
                       {agreed.old->number, agreed.old->document, kPurchases});
  }
  if (NumberOrZero(card.number[kValue]) != 0) WriteNote(connection, card);
  transaction.Commit();
}

}  // namespace tevra
