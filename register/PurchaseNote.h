// The purchase note of an asset, and what saving it deletes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "accounting/DocumentUse.h"
#include "platform/data/Connection.h"
#include "register/AssetSave.h"

namespace tevra {

/// The purchase note under the code that an asset had before.
struct OldPurchaseNote {
  std::int32_t number = 0;  ///< NDI
  std::string document;
  double lei = 0;  ///< the sum of its debits
};

/// What saving a card concerns besides the asset's own purchase note.
struct PurchaseNoteUse {
  std::vector<std::string> own;  ///< the journals of `others` that were left out, see NotesUnder
  DocumentUse others;            ///< deleted by the save
  std::optional<OldPurchaseNote> old;  ///< only when the code changes; kept unless `deleteOld`
  bool deleteOld = false;
};

/// Reads it for an asset that is to be saved with the code `code`; `nrCrt` is the number of an
/// asset that exists. The note in the journal of purchases is the asset's own when the asset has
/// that code already and neither another asset, an object nor a month's charges can have written
/// it. Throws Failure.
PurchaseNoteUse FindPurchaseNoteUse(Connection& connection, const std::string& code,
                                    const std::optional<std::int32_t>& nrCrt);

/// Asks before other notes are deleted, and whether the old note goes, both with "Nu" as the
/// default button. False when nothing may be saved.
bool MaySavePurchaseNote(PurchaseNoteUse& use);

/// Replaces the purchase note of the asset on the card in one transaction: deletes the lines of the
/// document and, if agreed, the old note, then writes the asset, its VAT and the supplier. An asset
/// without a value gets no note.
///
/// Throws Failure kRowChanged when other notes stand under the document now than when the user
/// agreed, otherwise like cBLLNoteContabile::AddNota. All notes then stay.
void pAddNoteContabile(const AssetCard& card, const PurchaseNoteUse& agreed);

}  // namespace tevra
