// A line of an accounting note as data: what the routines that compose notes return.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/data/Value.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// One line of Kv_Linii, with a property for each column under the column's name, except for case.
/// The caller decides the note's content (sides, accounts, journal, document).
struct NoteLine {
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

 private:
  double credit_ = 0;
};

/// An amount from here on, in lei, with its VAT would lose its bani in a double.
inline constexpr double kAmountLimit = 1e12;

/// Why an amount is refused that is not below the limit; `what` names it.
std::string TooLargeText(const std::string& what);

/// The lines of one note in the order in which they are written. Without lines nothing is written.
using Note = std::vector<NoteLine>;

/// A line with what all notes of this program share: quantity 1, origin "I", the user of the
/// session, the company's code, and `document` as document and mark.
NoteLine LineOf(const std::string& journal, const std::string& document, const DateTime& date);

/// Appends a copy of `line`, unless both its amounts in lei are exactly 0: such a line is not
/// written.
void Add(Note& note, const NoteLine& line);

}  // namespace tevra
