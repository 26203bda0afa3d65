// The accounting notes of inventory objects: the purchase and the write-off.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "accounting/DocumentUse.h"
#include "accounting/Note.h"
#include "inventory/ObjectCard.h"

namespace tevra {

/// The document of an object's notes: "IMO" and its code.
std::string ObjectDocument(const ObjectCard& card);

/// The purchase note of the card: the supplier is credited with value and VAT, the account of the
/// VAT and that of inventory objects are debited. No lines for a value of 0 and for a scrapped
/// object. Throws Failure 13 and 6 for a number or a percentage that is none.
Note PurchaseNote(const ObjectCard& card);

/// The notes that stand under the document of a new object. None are its own: saving deletes them.
DocumentUse NotesBeforePurchase(const ObjectCard& card);

/// Deletes the lines of the document and writes the purchase note in one transaction, on its own
/// connection. Returns what was written. Throws Failure kRowChanged when other notes stand under
/// the document now than when the user `agreed`, otherwise like cBLLNoteContabile::AddNota. The old
/// lines then remain.
Note pAddNoteContabile(const ObjectCard& card, const DocumentUse& agreed);

/// The note that moves the card's value from its account to `expenseAccount`. No lines for a value
/// of 0. Throws Failure 13 for a value that is empty or no number.
Note WriteOffNote(const ObjectCard& card, const std::string& expenseAccount);

/// The expense account that is associated with an account, perhaps empty; nothing when none is.
std::optional<std::string> ExpenseAccountOf(Connection& connection, const std::string& account);

/// Why the object may not be written off, as far as the card knows: it was before, or its day of
/// use lies outside the accounting year. `writtenOff`: Blocata when the card was loaded.
std::optional<ObjectRefusal> RefusalToWriteOff(const ObjectCard& card, bool writtenOff);

/// Why it may not be for want of an expense account.
ObjectRefusal NoExpenseAccount(const ObjectCard& card);

struct WriteOffResult {
  std::optional<ObjectRefusal> refusal;  ///< nothing was written
  Note note;                             ///< otherwise what was written
};

/// Writes off the object `id` with what is on the card: reads whether it exists and is not written
/// off yet, writes the note and the mark, all in one transaction on its own connection, so that two
/// users who write it off at once write one note. Throws Failure, and then nothing is written.
WriteOffResult WriteOff(const ObjectCard& card, std::int32_t id);

}  // namespace tevra
