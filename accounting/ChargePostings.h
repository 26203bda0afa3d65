// The month's depreciation in the accounting lines.
#pragma once

#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// What a posting wrote.
struct ChargesPosted {
  int notes = 0;
  double lei = 0;  ///< the sum of their debits
};

/// The document of a month's postings: "IMO07" for July of any year.
std::string ChargeDocument(const DateTime& date);

/// Writes a note for each asset with a charge, by the rates of the last run: its depreciation
/// account credited, its expense account debited, rounded to bani. Whatever bears the month's
/// document goes first, in the same transaction. A charge that rounds to nothing has no note, nor
/// has an asset whose account is not associated.
///
/// Throws Failure with the old postings still there; where a note was refused its source names the
/// asset's number.
ChargesPosted PostCharges(Connection& connection, const DateTime& date);

}  // namespace tevra
