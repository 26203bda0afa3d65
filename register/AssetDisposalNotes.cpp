// The notes of a sale.
#include "accounting/NoteChecker.h"
#include "accounting/VatRate.h"
#include "accounting/cBLLNoteContabile.h"
#include "platform/data/MoneySum.h"
#include "platform/data/Recordset.h"
#include "platform/text/Numbers.h"
#include "register/AssetDisposal.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

using namespace amount;
using namespace account;

constexpr const char* kSales = "JV";
constexpr const char* kRetirements = "OD";

double VatOf(const Disposal& sale) {
  return RoundTo(Nz(sale.vatAmount).AsDouble(), 2);
}

// What all lines of both notes share. The VAT rate and the cost centre of the sale stand on the
// lines of the retirement too.
NoteLine LineOfSale(const char* journal, const Disposal& sale, double rate) {
  NoteLine line = LineOf(journal, sale.document, sale.date);
  line.Curs = rate;
  line.cod = CurrentSession().codDeviza;
  line.CotaTVA = CByte(ReadVatRate(sale.vat).percent);
  line.CodBUG = sale.costCentre;
  return line;
}

void AddDebit(Note& note, NoteLine line, const std::string& account, double lei, double foreign) {
  line.Cont = account;
  line.Debit = lei;
  line.DevDebit = foreign;
  Add(note, line);
}

void AddCredit(Note& note, NoteLine line, const std::string& account, double lei, double foreign) {
  line.Cont = account;
  line.SetCredit(CStr(lei));
  line.DevCredit = foreign;
  Add(note, line);
}

void Write(const Connection& connection, const Note& note) {
  cBLLNoteContabile writer;
  NoteChecker checker(NoteChecker::Balance::kNotRequired);
  writer.AddNote(connection, note, checker);
  checker.Finish();
}

std::string Lei(double amount) {
  return Format(amount, "#.##0,00");
}

std::string Imbalance(const Note& note) {
  MoneySum debit;
  MoneySum credit;
  for (const NoteLine& line : note) {
    debit.Add(line.Debit);
    credit.Add(line.CreditAmount());
  }
  if (RoundTo(debit.Total() - credit.Total(), 2) == 0) return {};
  return "Nota \"" + note.front().Jurnal + "\" nu este echilibrata: debit " + Lei(debit.Total()) +
         ", credit " + Lei(credit.Total()) + ".";
}

// An association may be without its account.
std::string NoDepreciationAccount(const Disposal& sale, const Note& note) {
  const bool missing = note.front().Jurnal == kRetirements && note.back().Cont.empty() &&
                       !sale.cont[kExpense].empty();
  if (!missing) return {};
  return "Contul " + sale.assetAccount + " nu are cont de amortizare: nota \"" + kRetirements +
         "\" nu se poate scrie.";
}

}  // namespace

Note SaleNote(const Disposal& sale, double rate) {
  const VatRate vat = ReadVatRate(sale.vat);
  const NoteLine line = LineOfSale(kSales, sale, rate);
  const double price = Nz(sale.value[kPrice]).AsDouble();
  const double foreignPrice = Nz(sale.value[kForeignPrice]).AsDouble();
  const double vatAmount = VatOf(sale);
  const double foreignVat = RoundTo(vatAmount / rate, 2);
  Note note;
  NoteLine customer = line;
  customer.Tert = TextOrNull(sale.client);
  AddDebit(note, customer, sale.cont[kCustomer], price + vatAmount, foreignPrice + foreignVat);
  AddCredit(note, line, sale.cont[kRevenue], price, foreignPrice);
  if (vat.percent != 0) AddCredit(note, line, vat.account, vatAmount, foreignVat);
  return note;
}

// The depreciation's line depends on the amounts in currency alone.
Note RetirementNote(const Disposal& sale, double rate, const std::string& depreciationAccount) {
  const NoteLine line = LineOfSale(kRetirements, sale, rate);
  const double cost = Nz(sale.cost).AsDouble();
  const double foreignCost = Nz(sale.foreignCost).AsDouble();
  const double residual = Nz(sale.value[kResidual]).AsDouble();
  const double foreignResidual = Nz(sale.value[kForeignResidual]).AsDouble();
  Note note;
  AddCredit(note, line, sale.assetAccount, cost, foreignCost);
  AddDebit(note, line, sale.cont[kExpense], residual, foreignResidual);
  if (foreignCost - foreignResidual > 0) {
    AddDebit(note, line, depreciationAccount, cost - residual, foreignCost - foreignResidual);
  }
  return note;
}

std::optional<std::string> DepreciationAccount(Connection& connection, const std::string& account) {
  const Recordset row =
      connection.OpenRecordset("SELECT CONT_AMO FROM I_CONTURIIM WHERE CONT=?", {account});
  if (row.Eof()) return std::nullopt;
  return row.Get("CONT_AMO").TextOrEmpty();
}

std::string NotAssociatedText(const std::string& account) {
  return "Va rog asociati contului " + account + " un cont de amortizare";
}

Note PostSale(const Disposal& sale, double rate, const SaleNoteUse& agreed) {
  const Note note = SaleNote(sale, rate);
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  RequireUnchanged(agreed.others, NotesUnder(connection, sale.document, agreed.own));
  connection.Execute("DELETE FROM Kv_LINII WHERE DOC=?", {sale.document});
  Write(connection, note);
  transaction.Commit();
  return note;
}

std::optional<Note> PostRetirement(const Disposal& sale, double rate) {
  Connection connection(CurrentSession().connectionString);
  Transaction transaction(connection);
  const std::optional<std::string> depreciation =
      DepreciationAccount(connection, sale.assetAccount);
  const Note note = RetirementNote(sale, rate, depreciation.value_or(""));
  if (!depreciation) {
    // An asset without an account fails at its own line, before the association is missed.
    if (!note.empty()) Write(connection, {note.front()});
    return std::nullopt;
  }
  Write(connection, note);
  transaction.Commit();
  return note;
}

std::string NoNoteReason(const Disposal& disposal, double rate) {
  if (!disposal.sale) return "Casarea nu scrie nota contabila.";
  if (rate == 0) return "Imobilizarea nu are curs: iesirea nu se poate salva.";
  const Value& price = disposal.value[kPrice];
  if (price.IsNull() || price.IsText() || price.AsDouble() < 0) {
    return "Nota apare dupa ce completati pretul de vanzare.";
  }
  return {};
}

std::string WarningsOf(const Disposal& sale, const std::vector<Note>& notes) {
  std::string text;
  const auto say = [&text](const std::string& sentence) {
    if (!sentence.empty()) text += (text.empty() ? "" : "\n") + sentence;
  };
  const VatRate vat = ReadVatRate(sale.vat);
  const double expected = RoundTo(VatAtRate(Nz(sale.value[kPrice]).AsDouble(), vat.percent), 2);
  if (RoundTo(VatOf(sale) - expected, 2) != 0) {
    say("TVA colectata " + Lei(VatOf(sale)) + " difera de cota aleasa: " +
        std::to_string(vat.percent) + " % din pret este " + Lei(expected) + ".");
  }
  for (const Note& note : notes) {
    if (note.empty()) continue;
    say(Imbalance(note));
    say(NoDepreciationAccount(sale, note));
  }
  return text;
}

}  // namespace tevra
