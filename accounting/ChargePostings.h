// Posts the month's depreciation to the accounting lines.
#pragma once

#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The result of a posting.
struct ChargesPosted {
  int notes = 0;
  double lei = 0;  ///< the sum of their debits
};

/// The document of a month's postings: "IMO07" for July of any year.
std::string ChargeDocument(const DateTime& date);

/// Writes a note for each asset with a charge, using the rates of the last run: it credits the
/// depreciation account and debits the expense account, rounded to bani. All lines with the month's
/// document are deleted first, in the same transaction. A charge that rounds to 0 has no note, and
/// neither has an asset whose account is not associated.
///
/// Throws Failure and keeps the old postings; when a note was refused, the source names the asset's
/// number.
ChargesPosted PostCharges(Connection& connection, const DateTime& date);

}  // namespace tevra
