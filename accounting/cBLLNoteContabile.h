// Writes the lines of accounting notes; all of them are written through this class.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"
#include "platform/text/Failure.h"

namespace tevra {

/// One line of Kv_Linii, with a property for each column under the column's name, except for case.
/// The caller decides the note's content (sides, accounts, journal, document). Properties keep
/// their values after AddNota, so that between the lines of a note only the differences need
/// setting.
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
  /// Lei, as a text in Romanian form; "0" is accepted. SetCredit throws Failure 13 for other texts.
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
  std::string TipDoc;  ///< not stored; the table has no such column

  /// True when nothing required is missing; otherwise `errorText` names what is missing.
  bool EsteNotaValida(std::string& errorText) const;

  /// Writes a line on the caller's connection, within the caller's transaction. `sameNote`: the
  /// line continues the previous line's note; otherwise a new note begins. The due date is a month
  /// after DataInr. Throws Failure kRefusedNote when something required is missing, 438 when the
  /// table has a column without a property, and the database's failures; the line is then not
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
