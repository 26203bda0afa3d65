// The document of a month's charges, and the notes that posting the month would delete with it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// "IMO07" for July of any year, "IMO07/2026" with the year.
std::string ChargeDocument(const DateTime& date, bool withYear = false);

/// The document of the month as the company's setting wants it. Throws Failure.
std::string ChargeDocument(Connection& company, const DateTime& date);

/// True for the document of any month, with or without a year.
bool IsChargeDocument(const std::string& document);

/// Notes of one year under a document.
struct NotesOfYear {
  std::optional<int> year;  ///< none for notes without a date
  bool charges = false;     ///< the charges of a month; otherwise notes of something else
  int notes = 0;
  double lei = 0;  ///< the sum of their debits

  bool operator==(const NotesOfYear&) const = default;
};

/// What posting a month would delete besides the month's own earlier charges.
struct MonthUse {
  std::string document;
  std::vector<NotesOfYear> others;  ///< by year
};

/// The notes under the month's document that are not the charges of that month and year: charges of
/// another year, notes of an asset, an object or a sale with that document. Throws Failure.
MonthUse OthersUnderMonth(Connection& company, const DateTime& date);

/// The charges of that month and year under the document, in either form; no notes when the month
/// is not posted. Throws Failure.
NotesOfYear ChargesOfMonth(Connection& company, const DateTime& date);

/// What would be lost: a line with the document, then one for each year.
std::string OthersText(const MonthUse& use);

/// Asks before these notes are deleted, with "Nu" as the default button. True without a question
/// when there are none.
bool MayReplace(const MonthUse& use);

/// Deletes all notes under the month's document, and the charges of that month and year under its
/// other form, so that switching the setting never leaves a month posted twice. Works within the
/// caller's transaction. Throws Failure.
void DeleteMonth(Connection& company, const DateTime& date);

}  // namespace tevra
