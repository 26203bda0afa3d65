#include "accounting/ChargePostings.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "accounting/MonthlyCharge.h"
#include "accounting/NoteChecker.h"
#include "accounting/cBLLNoteContabile.h"
#include "platform/data/MoneySum.h"
#include "platform/data/RowReader.h"
#include "platform/text/Invariant.h"
#include "platform/text/Numbers.h"
#include "session/Module1.h"

namespace tevra {

namespace {

// Each asset forms its own group. The order of the inner statement does not bind the outer
// one.
std::string ChargesStatement() {
  return std::string(
             "SELECT COD_CC,VAL_AMOR, I.Cont_AMO as ContDebit, I.Cont_Chelt  as ContChelt, "
             "S.NRCRT AS NRCRT FROM (") +
         "SELECT NRCRT, COD,COD_CC, CONT, DENUMIRE, blocata, " + kMonthlyCharge +
         " AS VAL_AMOR, VAL_AMOR_CUMULATA, "
         "VAL_RAMASA, VAL_AMOR_CUMULATA + VAL_RAMASA AS VAL_CUMP, SUM(VAL_CUMP) AS TVALCUMP, "
         "SUM(VAL_AMOR) AS TVALAM, SUM(VAL_AMOR_CUMULATA) AS TVALAMO, SUM(VAL_RAMASA) AS "
         "TVALRAMASA, COTAL_LUNARA FROM I_IMO GROUP BY COD,COD_CC, CONT, DENUMIRE, NRCRT, "
         "VAL_AMOR_CUMULATA, VAL_RAMASA, VAL_CUMP, VALCHELEI, COTAL_LUNARA,VAL_BLOCATA,BLOCATA "
         "ORDER BY NRCRT" +
         ") S INNER JOIN I_ConturiIM I ON S.CONT=I.CONT ORDER BY S.NRCRT";
}

// The assets with their charges, one after another in the order of their numbers.
class Charges {
 public:
  explicit Charges(const Connection& connection)
      : rows_(connection, ChargesStatement()),
        number_(rows_.Column("NRCRT")),
        centre_(rows_.Column("COD_CC")),
        charge_(rows_.Column("VAL_AMOR")),
        // The statement has the names of the two accounts the wrong way round.
        depreciationAccount_(rows_.Column("ContDebit")),
        expenseAccount_(rows_.Column("ContChelt")) {}

  [[nodiscard]] bool Next() {
    const std::int64_t before = asset;
    if (!rows_.Next()) return false;
    asset = rows_.Get(number_).Whole();
    Invariant(asset > before, "imobilizarile nu se citesc in ordinea numarului curent");
    return true;
  }

  double Charge() const { return Nz(PostedCharge(rows_.Get(charge_))).AsDouble(); }
  std::string Centre() const { return std::string(rows_.Text(centre_)); }
  std::string DepreciationAccount() const { return std::string(rows_.Text(depreciationAccount_)); }
  std::string ExpenseAccount() const { return std::string(rows_.Text(expenseAccount_)); }

  std::int64_t asset = std::numeric_limits<std::int64_t>::min();  ///< NRCRT

 private:
  RowReader rows_;
  int number_;
  int centre_;
  int charge_;
  int depreciationAccount_;
  int expenseAccount_;
};

void AddLine(cBLLNoteContabile& note, const Connection& connection, bool sameNote,
             NoteChecker& checker) {
  note.AddNota(connection, sameNote);
  checker.Add(note.NDI, note.NrLinie, note.Debit, note.CreditAmount());
}

void AddCharge(cBLLNoteContabile& note, const Connection& connection, const Charges& charges,
               double charge, NoteChecker& checker) {
  if (!std::isfinite(charge)) throw Failure(kOverflow, "Overflow: VAL_AMOR");
  note.CodBUG = charges.Centre();
  note.Cont = charges.DepreciationAccount();
  note.SetCredit(CStr(charge));
  note.Debit = 0;
  AddLine(note, connection, false, checker);
  note.Cont = charges.ExpenseAccount();
  note.SetCredit("0");
  note.Debit = charge;
  AddLine(note, connection, true, checker);
}

ChargesPosted WriteNotes(Connection& connection, cBLLNoteContabile& note) {
  ChargesPosted posted;
  posted.document = note.Doc;
  MoneySum sum;
  NoteChecker checker;
  for (Charges charges(connection); charges.Next();) {
    const double charge = charges.Charge();
    if (charge == 0) continue;
    try {
      AddCharge(note, connection, charges, charge, checker);
    } catch (const Failure& failure) {
      if (failure.Number() == kBrokenInvariant) throw;
      throw Failure(failure.Number(), failure.Description(),
                    "NRCRT " + std::to_string(charges.asset));
    }
    ++posted.notes;
    sum.Add(charge);
  }
  checker.Finish();
  InvariantEqual(checker.Notes(), posted.notes, "note scrise");
  InvariantEqual(checker.Lines(), 2 * posted.notes, "linii scrise");
  InvariantEqual(
      connection.QueryValue("SELECT COUNT(*) FROM Kv_Linii WHERE DOC = ?", {note.Doc}).Whole(),
      checker.Lines(), "linii gasite in fisier");
  posted.lei = sum.Total();
  return posted;
}

}  // namespace

ChargesPosted PostCharges(Connection& connection, const DateTime& date, const MonthUse& agreed) {
  Transaction transaction(connection);
  const MonthUse now = OthersUnderMonth(connection, date);
  if (now.others != agreed.others) {
    throw Failure(kRowChanged, "Notele contabile sub documentul \"" + now.document +
                                   "\" s-au schimbat intre timp; scrieti din nou notele lunii");
  }
  cBLLNoteContabile note;
  static_cast<NoteLine&>(note) = LineOf("OD", now.document, date);
  DeleteMonth(connection, date);
  ChargesPosted posted = WriteNotes(connection, note);
  transaction.Commit();
  return posted;
}

}  // namespace tevra
