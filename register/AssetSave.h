// Saves the asset card: derives the remaining fields and writes the asset's row. Its purchase note
// is in PurchaseNote.h.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"
#include "register/CardBoxes.h"
#include "register/FieldValues.h"
#include "register/MethodPanel.h"

namespace tevra {

/// The contents of the card's boxes.
struct AssetCard {
  std::array<std::string, text::kCount> text;  ///< txtText
  /// txtNumar: the number with all digits, Null for an empty box, the text when it is no number.
  std::array<Value, number::kCount> number;
  std::array<DateTime, date::kCount> date;  ///< DTPicker1
  bool blocked = false;                     ///< chkBlocata
  std::string tva;                          ///< the text of cboTVA
};

/// The fields of the row in the order in which they are written, and the changes that the save
/// makes on the screen.
struct AssetRow {
  FieldValues fields;
  std::optional<double> real;        ///< the real duration, under the method with moral wear
  std::optional<DateTime> blocking;  ///< the blocking date, moved to the 1st
};

/// The row of a new asset. `today` and `user` are stored. Throws Failure 13 when a box that the
/// derivation needs contains no number, 6 and 11 like the derivations.
AssetRow NewAssetRow(const AssetCard& card, const Coefficients& coefficients, const DateTime& today,
                     const std::string& user);

/// The row of a changed asset. Until the next monthly run its depreciation so far is an estimate
/// from the rate of the linear phase. Throws like NewAssetRow.
AssetRow ChangedAssetRow(const AssetCard& card, const Coefficients& coefficients,
                         const DateTime& today);

/// Writes a new asset in its own transaction, on its own connection.
AssetRow pAdaugaImobilizare(const AssetCard& card);

/// Writes the changes of the asset `nrCrt`. Throws Failure 3021 when it no longer exists.
AssetRow pModificaImobilizare(const AssetCard& card, std::int32_t nrCrt);

}  // namespace tevra
