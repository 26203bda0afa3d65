#include "register/InventoryTransfer.h"

#include <algorithm>
#include <optional>

#include "accounting/NoteChecker.h"
#include "accounting/cBLLNoteContabile.h"
#include "platform/data/Command.h"
#include "platform/data/RowReader.h"
#include "platform/system/MessageBox.h"
#include "platform/text/Dates.h"
#include "platform/text/Invariant.h"
#include "platform/text/Numbers.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra {

namespace {

constexpr const char* kJournal = "OD";

double Limit(Connection& connection) {
  RowReader row(connection,
                "SELECT I_VALIM.DATVALIM, I_VALIM.VALIM FROM I_VALIM, "
                "(select Max(i_valim.datvalim) as maxim from i_valim) AS q1 "
                "WHERE (I_VALIM.DATVALIM=q1.maxim)");
  return row.Next() ? row.Number(row.Column("VALIM")).value_or(0) : 0;
}

/// The assets of the register that have a remaining value and are worth no more than the limit,
/// also those that left, with the accounts associated with theirs.
constexpr const char* kNoted =
    " FROM I_IMO INNER JOIN I_CONTURIIM ON I_IMO.CONT = I_CONTURIIM.CONT "
    " where VAL_RAMASA > 0 and VAL_CUMP <= ?";

std::vector<NotedAsset> ReadNoted(Connection& connection, double limit) {
  RowReader rows(connection,
                 std::string("Select I_IMO.*,I_CONTURIIM.CONT_AMO,I_CONTURIIM.CONT_CHELT ") +
                     kNoted + " ORDER BY I_IMO.NRCRT",
                 {limit});
  const int number = rows.Column("NRCRT");
  const int account = rows.Column("CONT");
  const int depreciation = rows.Column("CONT_AMO");
  const int centre = rows.Column("COD_CC");
  const int document = rows.Column("DOCUMENT");
  const int value = rows.Column("VAL_CUMP");
  const int remaining = rows.Column("VAL_RAMASA");
  std::vector<NotedAsset> noted;
  while (rows.Next()) {
    noted.push_back({rows.Get(number).AsLong(), Nz(rows.Get(account)).AsText(),
                     Nz(rows.Get(depreciation)).AsText(), Nz(rows.Get(centre), "").AsText(),
                     std::string(rows.Text(document)), rows.Number(value).value_or(0),
                     rows.Number(remaining).value_or(0)});
  }
  return noted;
}

std::optional<std::string> ExpenseAccount(Connection& connection, const std::string& inventory) {
  RowReader row(connection,
                "SELECT CONT_CHELT FROM I_CONTURIIM WHERE CONT=? AND NOT CONT_CHELT IS NULL",
                {inventory});
  if (!row.Next()) return std::nullopt;
  return std::string(row.Text(0));
}

void Copy(Connection& connection, const TransferSelection& selection, Transferred& done) {
  std::string names = "CONT, Blocata";
  std::string marks = "?, ?";
  for (const std::string& field : CopiedFields()) {
    names += ", " + field;
    marks += ", ?";
  }
  Command insert(connection, "Insert into I_INV (" + names + ") VALUES (" + marks + ")");
  Command greatest(connection, "Select Max(NRCRT) from I_INV");
  for (const SmallAsset& asset : selection.assets) {
    Values values{CurrentSession().contObiecteInventar, Value::YesNo(true)};
    values.insert(values.end(), asset.copied.begin(), asset.copied.end());
    insert.Execute(values);
    done.copies.push_back({greatest.QueryValue().AsLong(), asset});
  }
}

void WriteNotes(Connection& connection, double limit, const DateTime& day, Transferred& done) {
  const std::vector<NotedAsset> noted = ReadNoted(connection, limit);
  if (noted.empty()) {
    done.warning = "Nu am generat note contabile";
    return;
  }
  const std::string& inventory = CurrentSession().contObiecteInventar;
  const std::optional<std::string> expense = ExpenseAccount(connection, inventory);
  if (!expense) {
    done.warning = "Va rog asociati un cont de cheltuiala contului: " + inventory;
    done.warningIcon = kExclamation;
    return;
  }
  cBLLNoteContabile writer;
  NoteChecker checker;
  for (const NotedAsset& asset : noted) {
    try {
      Note note = TransferNote(asset, *expense, day);
      const std::int32_t number = writer.AddNote(connection, note, checker);
      if (number != 0) done.notes.push_back({number, asset.number, std::move(note)});
    } catch (const Failure& failure) {
      if (failure.Number() == kBrokenInvariant) throw;
      throw Failure(failure.Number(), failure.Description(),
                    "NRCRT " + std::to_string(asset.number));
    }
  }
  checker.Finish();
  InvariantEqual(checker.Notes(), static_cast<std::int64_t>(done.notes.size()), "note scrise");
}

void Mark(Connection& connection, const TransferSelection& selection, const DateTime& day) {
  Command mark(connection,
               "UPDATE I_IMO SET IESIRE = ?, DATA_IESIRE = ?, UTILIZATOR = ? WHERE NRCRT = ?");
  for (const SmallAsset& asset : selection.assets) {
    mark.Execute({Value::YesNo(true), day, CurrentSession().userName, asset.number});
  }
}

}  // namespace

std::string OtherMonthText(const DateTime& lastDay) {
  return "Ultimul calcul pentru mijloacele fixe trebuie sa fie in luna : [" +
         std::to_string(lastDay.Month()) + "-" + std::to_string(lastDay.Year()) + "]";
}

std::string NothingToTransferText(const TransferSelection& selection) {
  return "Nu exista imobilizari a caror valoare sa fie mai mica de " + CStr(selection.limit) + "!";
}

bool AskToTransfer(const TransferSelection& selection) {
  return MsgBoxEx(std::to_string(selection.assets.size()) +
                      " imobilizari gasite cu valoare mai mica de " + CStr(selection.limit) +
                      "! Doriti sa fie trecute in inventar? ",
                  kYesNo, "Trecere in inventar") == kYes;
}

DateTime TransferDay(int year, int month) {
  return DateTime(year, month, 1).AddMonths(1);
}

std::string TransferDocument(const DateTime& day) {
  return "IMOII" + ShortDate(day);
}

const std::vector<std::string>& CopiedFields() {
  static const std::vector<std::string> kFields{
      "COD",     "DENUMIRE", "COD_CC", "COD_LOC",      "COD_FURNIZOR", "DOCUMENT",    "DATA_ACH",
      "DATA_PF", "VAL_CUMP", "CURS",   "VAL_CUMP_VAL", "OBS1",         "COD_TVA_CUMP"};
  return kFields;
}

TransferSelection ReadTransferSelection(Connection& connection) {
  TransferSelection selection;
  selection.limit = Limit(connection);
  RowReader rows(connection,
                 "Select * from I_IMO where Iesire=0 AND VAL_RAMASA > 0 and VAL_CUMP <= ? "
                 "ORDER BY NRCRT",
                 {selection.limit});
  const int number = rows.Column("NRCRT");
  const int code = rows.Column("COD");
  const int name = rows.Column("DENUMIRE");
  const int value = rows.Column("VAL_CUMP");
  const int remaining = rows.Column("VAL_RAMASA");
  std::vector<int> copied;
  for (const std::string& field : CopiedFields()) copied.push_back(rows.Column(field));
  while (rows.Next()) {
    SmallAsset asset{rows.Get(number).AsLong(),          std::string(rows.Text(code)),
                     std::string(rows.Text(name)),       rows.Number(value).value_or(0),
                     rows.Number(remaining).value_or(0), {}};
    for (const int column : copied) asset.copied.push_back(rows.Get(column));
    selection.assets.push_back(std::move(asset));
  }
  selection.notedAgain =
      connection
          .QueryValue(std::string("SELECT COUNT(*)") + kNoted + " AND IESIRE <> 0",
                      {selection.limit})
          .AsLong();
  return selection;
}

Note TransferNote(const NotedAsset& asset, const std::string& expenseAccount, const DateTime& day) {
  const double value = RoundTo(asset.value, 2);
  const double remaining = RoundTo(asset.remaining, 2);
  NoteLine line = LineOf(kJournal, TransferDocument(day), day);
  line.DocExplicatie = asset.document;
  line.CodBUG = asset.centre;
  Note note;
  line.Cont = asset.account;
  line.SetCredit(CStr(value));
  Add(note, line);
  line.SetCredit("0");
  line.Cont = expenseAccount;
  line.Debit = remaining;
  Add(note, line);
  line.Cont = asset.depreciationAccount;
  line.Debit = RoundTo(value - remaining, 2);
  Add(note, line);
  return note;
}

// Until the transaction begins another program may move the same assets or calculate another month;
// the user agreed to what he was shown.
Transferred TransferToInventory(Connection& connection, const TransferSelection& agreed,
                                const DateTime& day,
                                const std::function<void(TransferStep step)>& entering) {
  const auto enter = [&](TransferStep step) {
    if (entering) entering(step);
  };
  enter(TransferStep::kCopy);
  Transaction transaction(connection);
  if (ReadTransferSelection(connection) != agreed) {
    throw Failure(kRowChanged,
                  "Imobilizarile de trecut in inventar s-au schimbat intre timp. Nu s-a trecut "
                  "nici una; reluati trecerea in inventar");
  }
  Transferred done;
  Copy(connection, agreed, done);
  enter(TransferStep::kNote);
  WriteNotes(connection, agreed.limit, day, done);
  enter(TransferStep::kMark);
  Mark(connection, agreed, day);
  transaction.Commit();
  return done;
}

}  // namespace tevra
