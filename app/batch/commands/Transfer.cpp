#include <optional>

#include "app/batch/Refusal.h"
#include "app/batch/Table.h"
#include "app/batch/commands/Commands.h"
#include "engine/Module3.h"
#include "platform/data/MoneySum.h"
#include "platform/text/Numbers.h"
#include "register/InventoryTransfer.h"
#include "session/Module1.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// Within a transaction of its own that nobody commits, a transfer is tried and undone.
Transferred Work(Connection& company, const TransferSelection& agreed, const DateTime& day,
                 bool dryRun) {
  std::optional<Transaction> undone;
  try {
    if (dryRun) undone.emplace(company);
    return TransferToInventory(company, agreed, day);
  } catch (const Failure& failure) {
    throw Refusal(ReasonText(failure), failure);
  }
}

void PrintCopies(const Transferred& done, std::ostream& out) {
  TextTable table({{"Obiect", true},
                   {"Nr. crt.", true},
                   {"Nr. inv."},
                   {"Denumire"},
                   {"Valoare Lei", true},
                   {"Valoare ramasa", true}});
  for (const Transferred::Copy& copy : done.copies) {
    const SmallAsset& asset = copy.asset;
    table.AddRow({copy.number, asset.number, asset.code, asset.name, asset.value, asset.remaining});
  }
  table.Write(out);
}

void PrintNotes(const Transferred& done, std::ostream& out) {
  TextTable table({{"Nota", true},
                   {"Imobilizare", true},
                   {"Cont"},
                   {"Debit", true},
                   {"Credit", true},
                   {"Centru de Cost"}});
  for (const Transferred::WrittenNote& note : done.notes) {
    for (const NoteLine& line : note.lines) {
      table.AddRow(
          {note.number, note.asset, line.Cont, line.Debit, line.CreditAmount(), line.CodBUG});
    }
  }
  out << '\n';
  table.Write(out);
}

void PrintSum(const Transferred& done, const DateTime& day, bool dryRun, std::ostream& out) {
  MoneySum lei;
  for (const Transferred::WrittenNote& note : done.notes) {
    for (const NoteLine& line : note.lines) lei.Add(line.Debit);
  }
  const std::size_t assets = done.copies.size();
  const std::size_t notes = done.notes.size();
  out << '\n'
      << (dryRun ? "Ar trece in inventar " : "Au trecut in inventar ") << assets
      << (assets == 1 ? " imobilizare; " : " imobilizari; ") << TransferDocument(day) << ": "
      << notes << (notes == 1 ? " nota, " : " note, ") << Format(lei.Total(), "Standard")
      << " lei\n";
  if (dryRun) out << "Nu s-a scris nimic (--dry-run).\n";
}

}  // namespace

void Transfer(Connection& company, const DateTime& month, bool dryRun, std::ostream& out) {
  if (CurrentSession().contObiecteInventar.empty()) throw Refusal(kNoInventoryAccount);
  const DateTime day = TransferDay(month.Year(), month.Month());
  const DateTime last = day.AddDays(-1);
  if (!IsValidCalcul(last)) throw Refusal(OtherMonthText(last));
  const TransferSelection found = ReadTransferSelection(company);
  if (found.assets.empty()) throw Refusal(NothingToTransferText(found));
  if (!dryRun && !AskToTransfer(found)) return;
  const Transferred done = Work(company, found, day, dryRun);
  PrintCopies(done, out);
  if (!done.notes.empty()) PrintNotes(done, out);
  PrintSum(done, day, dryRun, out);
  if (!done.warning.empty()) MsgBoxEx(done.warning, done.warningIcon);
}

}  // namespace tevra::batch
