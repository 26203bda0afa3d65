// The one record through which lines of accounting notes are written.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"
#include "platform/text/Failure.h"

namespace tevra {

/// One line of Kv_Linii: a property for each column, under the column's name but for case. What a
/// note means (sides, accounts, journal, document) is the caller's. Properties keep their values
/// from one AddNota to the next: between the lines of a note only what differs is set again.
class cBLLNoteContabile {
 public:
  cBLLNoteContabile();
  ~cBLLNoteContabile();
  cBLLNoteContabile(const cBLLNoteContabile&) = delete;
  cBLLNoteContabile& operator=(const cBLLNoteContabile&) = delete;

  std::int32_t NDI = 0;      ///< number of the note; set by AddNota unless the line continues one
  std::int32_t NrLinie = 0;  ///< set by AddNota always
  std::string Jurnal;        ///< required; "JC" purchases, "JV" sales, "OD" the rest
  DateTime DataInr;          ///< day of entry
  std::string Cont;          ///< required; account
  std::string Expl;
  double Debit = 0;  ///< lei
  /// Lei, as text in Romanian form, "0" too. SetCredit throws Failure 13 for what is no number.
  std::string Credit() const;
  double CreditAmount() const { return credit_; }
  void SetCredit(const std::string& text);
  std::string Doc;  ///< required; document
  std::string Marca;
  std::string LitM;
  std::string CodBUG;  ///< cost centre of the line
  std::string CodTREZO;
  std::string cod;       ///< currency; the empty text becomes "LEI"
  double Curs = 0;       ///< its rate, lei for one unit
  double DevDebit = 0;   ///< in currency
  double DevCredit = 0;  ///< in currency
  double Cantit = 0;     ///< quantity
  Value Tert;            ///< third party's code, or Null
  std::int16_t TVA_LinRef = 0;
  std::int16_t CodOper = 0;
  std::uint8_t CotaTVA = 0;  ///< VAT percentage
  std::string Prov;          ///< origin
  std::string CodCC;
  Value DataScad;  ///< due date; overwritten by AddNota
  std::string Utilizator;
  DateTime Timp;  ///< moment of writing; overwritten by AddNota
  std::string CodIE;
  std::string CodSucursala;
  std::int32_t ID_Formula = 0;
  std::string DocExplicatie;
  std::string TipDoc;  ///< kept on the record only: the table has no such column

  /// True when nothing required is missing; else `errorText` names what is.
  bool EsteNotaValida(std::string& errorText) const;

  /// Writes a line on the caller's connection, within the caller's transaction. `sameNote`: it goes
  /// on with the note of the line before, else a new note begins. The due date is a month after
  /// DataInr. Throws Failure kRefusedNote when something required is missing, 438 when the table
  /// has a column without a property, else what the engine refuses; then nothing of the line is
  /// written.
  void AddNota(const Connection& connection, bool sameNote);

 private:
  class Writer;
  void GetNDI(Writer& writer);
  void GetNrLinie(Writer& writer);

  double credit_ = 0;
  std::unique_ptr<Writer> writer_;
};

}  // namespace tevra
