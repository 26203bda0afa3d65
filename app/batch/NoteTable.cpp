#include "app/batch/NoteTable.h"

#include "app/batch/Table.h"

namespace tevra::batch {

namespace {

// An amount of 0 is left blank, as on paper.
Value Amount(double amount) {
  return amount == 0 ? Value() : Value(amount);
}

}  // namespace

void WriteNote(const Note& note, std::ostream& out) {
  if (note.empty()) {
    out << "Nu s-a scris nota contabila: valoarea este 0.\n";
    return;
  }
  out << "Nota contabila " << note.front().Doc << ":\n";
  TextTable table({{"Jurnal"}, {"Cont"}, {"Debit", true}, {"Credit", true}});
  for (const NoteLine& line : note) {
    table.AddRow({line.Jurnal, line.Cont, Amount(line.Debit), Amount(line.CreditAmount())});
  }
  table.Write(out);
}

}  // namespace tevra::batch
