// Posts the month's depreciation to the accounting lines.
#pragma once

#include <string>

#include "accounting/MonthDocument.h"
#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The result of a posting.
struct ChargesPosted {
  std::string document;
  int notes = 0;
  double lei = 0;  ///< the sum of their debits
};

/// Writes a note for each asset with a charge, using the rates of the last run: it credits the
/// depreciation account and debits the expense account, rounded to bani. All lines with the month's
/// document are deleted first (see DeleteMonth), in the same transaction. A charge that rounds to 0
/// has no note, and neither has an asset whose account is not associated.
///
/// `agreed`: what OthersUnderMonth returned before the user agreed to its deletion. Throws Failure
/// kRowChanged when something else stands there now. Every Failure keeps the old postings; when a
/// note was refused, the source names the asset's number.
ChargesPosted PostCharges(Connection& connection, const DateTime& date,
                          const MonthUse& agreed = {});

}  // namespace tevra
