// The transfer of the smallest assets to the inventory objects, at a month's end.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "accounting/Note.h"
#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// What an asset to be moved becomes as an inventory object, and what the user is shown of it.
struct SmallAsset {
  std::int32_t number = 0;  ///< NRCRT
  std::string code;
  std::string name;
  double value = 0;      ///< lei
  double remaining = 0;  ///< lei left to depreciate
  Values copied;         ///< the fields of the copy, in the order of CopiedFields

  bool operator==(const SmallAsset&) const = default;
};

/// The assets that a transfer would move now.
struct TransferSelection {
  double limit = 0;                ///< the value that an asset may have at most to be moved, in lei
  std::vector<SmallAsset> assets;  ///< by NRCRT
  /// Assets that left earlier with something left to depreciate: they are not moved, but they get
  /// a note again.
  int notedAgain = 0;

  bool operator==(const TransferSelection&) const = default;
};

/// An asset that the transfer takes out of the asset accounts.
struct NotedAsset {
  std::int32_t number = 0;          ///< NRCRT
  std::string account;              ///< of the asset
  std::string depreciationAccount;  ///< associated with it
  std::string centre;
  std::string document;  ///< of the purchase
  double value = 0;      ///< lei
  double remaining = 0;  ///< lei left to depreciate
};

/// What a transfer wrote.
struct Transferred {
  struct Copy {
    std::int32_t number = 0;  ///< NRCRT of the inventory object
    SmallAsset asset;
  };
  struct WrittenNote {
    std::int32_t number = 0;  ///< NDI
    std::int32_t asset = 0;   ///< NRCRT
    Note lines;
  };
  std::vector<Copy> copies;
  std::vector<WrittenNote> notes;
  std::string warning;   ///< why no note was written, else empty
  long warningIcon = 0;  ///< the buttons word of that message
};

/// The parts of the work, in their order.
enum class TransferStep { kCopy, kNote, kMark };

/// The messages before the work.
inline constexpr const char* kNoInventoryAccount =
    "Va rog configurati contul de obiecte de inventar";
std::string OtherMonthText(const DateTime& lastDay);
std::string NothingToTransferText(const TransferSelection& selection);

/// Asks whether the assets found are to be moved.
bool AskToTransfer(const TransferSelection& selection);

/// The day of leaving and of the notes: the first one of the month after. Throws Failure 13 for a
/// month that does not exist.
DateTime TransferDay(int year, int month);

/// The document of the notes: "IMOII01.04.2026".
std::string TransferDocument(const DateTime& day);

/// The fields of I_INV that are taken over from I_IMO.
const std::vector<std::string>& CopiedFields();

/// The limit in force and the assets in the register up to it that have something left to
/// depreciate. Throws Failure.
TransferSelection ReadTransferSelection(Connection& connection);

/// The note that takes an asset out of its accounts: its value is credited, what is left goes to
/// `expenseAccount`, the rest closes the depreciation account. Lines of 0 are left out.
Note TransferNote(const NotedAsset& asset, const std::string& expenseAccount, const DateTime& day);

/// Copies the assets of `agreed` into I_INV, writes the notes and marks the assets as left, in one
/// transaction. `entering` is called before each step, so that a caller knows which one failed.
/// Throws Failure and leaves everything as it was, also when the assets to be moved are others by
/// now than those agreed; when a note was refused, the source names the asset.
Transferred TransferToInventory(Connection& connection, const TransferSelection& agreed,
                                const DateTime& day,
                                const std::function<void(TransferStep step)>& entering = {});

}  // namespace tevra
