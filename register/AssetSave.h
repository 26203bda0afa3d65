// What the asset card writes: the row of the asset, whose derivation the save finishes, and its
// purchase note.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"
#include "register/CardBoxes.h"
#include "register/MethodPanel.h"

namespace tevra {

/// The boxes of the card as they stand.
struct AssetCard {
  std::array<std::string, text::kCount> text;  ///< txtText
  /// txtNumar: a number in full, Null for an empty box, a text for one that holds no number.
  std::array<Value, number::kCount> number;
  std::array<DateTime, date::kCount> date;  ///< DTPicker1
  bool blocked = false;                     ///< chkBlocata
  std::string tva;                          ///< the text of cboTVA
};

using FieldValues = std::vector<std::pair<std::string, Value>>;

/// The fields of the row in the order in which they are written, and what the save changes on the
/// screen.
struct AssetRow {
  FieldValues fields;
  std::optional<double> real;        ///< the real duration, under the method with moral wear
  std::optional<DateTime> blocking;  ///< the blocking date, moved to the 1st
};

/// The row of a new asset. `today` and `user` as they are stored. Throws Failure 13 for a box that
/// the derivation needs and that holds no number, 6 and 11 as the derivations.
AssetRow NewAssetRow(const AssetCard& card, const Coefficients& coefficients, const DateTime& today,
                     const std::string& user);

/// The row of an asset that is changed. The depreciation so far is a plain estimate from the rate
/// of the linear phase, until the next monthly run. Throws as NewAssetRow.
AssetRow ChangedAssetRow(const AssetCard& card, const Coefficients& coefficients,
                         const DateTime& today);

/// Writes a new asset in a transaction of its own, on a connection of its own.
AssetRow pAdaugaImobilizare(const AssetCard& card);

/// Writes the changes of the asset `nrCrt`. Throws Failure 3021 when it is no longer there.
AssetRow pModificaImobilizare(const AssetCard& card, std::int32_t nrCrt);

/// Writes the purchase note of the asset on the card anew, in one transaction: the lines of the
/// document go, then the asset, its VAT and the supplier are written. An asset without a value gets
/// no note. Throws Failure as cBLLNoteContabile::AddNota; then the old note stands.
void pAddNoteContabile(const AssetCard& card);

}  // namespace tevra
