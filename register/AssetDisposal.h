// Takes an asset out of the register: by scrapping, which writes its row, or by sale, which writes
// its row and two notes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "accounting/DocumentUse.h"
#include "accounting/Note.h"
#include "platform/data/Connection.h"
#include "platform/data/Value.h"
#include "platform/text/DateTime.h"
#include "register/FieldValues.h"

namespace tevra {

/// The places of the screen's boxes txtValoare and txtCont.
namespace amount {
enum Place : std::size_t {
  kResidual,
  kForeignResidual,
  kPrice,
  kForeignPrice,
  kDifference,
  kForeignDifference,
  kCount
};
}
namespace account {
enum Place : std::size_t { kExpense, kCustomer, kRevenue, kVat, kCount };
}

/// What the boxes are called in messages.
inline constexpr const char* kAmountTags[amount::kCount] = {
    "Valoare reziduala", "", "Pret vanzare", "", "", ""};
inline constexpr const char* kAccountTags[account::kCount] = {
    "Cont de cheltuieli", "Cont client", "Cont de venituri", "Cod TVA la vanzare"};

/// The contents of the screen's boxes.
struct Disposal {
  std::int32_t asset = 0;  ///< NRCRT
  std::string code;        ///< txtNrInv
  bool sale = false;       ///< otherwise a scrapping
  DateTime date;           ///< DTPicker1
  std::string client;      ///< the third party's code, empty for none
  std::string document;    ///< txtDocIesire
  /// txtValoare: the number with all digits, Null for an empty box, the text when it is no number.
  std::array<Value, amount::kCount> value;
  Value cost;                                     ///< TextCump
  Value foreignCost;                              ///< TextCumpDev
  std::array<std::string, account::kCount> cont;  ///< txtCont; the last one has the rate's COD
  std::string vat;                                ///< the text of cboTVA: account and percentage
  Value vatAmount;                                ///< txtTVA
  std::string assetAccount;                       ///< CONT of the asset
  std::string costCentre;                         ///< its COD_CC
};

// ---- What the boxes show ------------------------------------------------------------------------

/// The statements of the lists: the expense accounts of a scrapping, the accounts and the VAT rate
/// of a sale, the clients.
inline constexpr const char* kAllAccounts =
    "Select CONT, CONT & '-' &TITLU as CONT_TITLU from kv_pc order by CONT";
inline constexpr const char* kExpenseAccounts =
    "Select CONT, CONT & '-' &TITLU as CONT_TITLU from kv_pc  where Left(CONT, 1) = '6' order by "
    "CONT";
inline constexpr const char* kCustomerAccounts =
    "Select CONT, CONT & '-' &TITLU as CONT_TITLU from kv_pc Where Left(TITLU, 6) = 'Client' order "
    "by CONT";
inline constexpr const char* kRevenueAccounts =
    "Select CONT, CONT & '-' &TITLU as CONT_TITLU from kv_pc where Left(CONT, 1) = '7' order by "
    "CONT";
inline constexpr const char* kSaleVatRates =
    "Select COD, CONT & '-' & PROCENT As CONT_PROCENT from kv_COTE Where Left(CONT, 4) = '4427' "
    "Order by COD";
inline constexpr const char* kDisposalClients =
    "SELECT COD,Nume from Kv_Ter WHERE Tip='M' OR Tip='C' Order By Nume ";
inline constexpr const char* kPercentOfRate = "Select procent from kv_cote where cod = ?";

/// The stored values of an asset after it was brought up to a date.
struct DisposalAsset {
  Value residual;
  Value foreignResidual;
  Value cost;
  Value foreignCost;
  double rate = 0;      ///< CURS for the derived amounts; Null counts as 0
  double noteRate = 1;  ///< CURS for the notes; Null counts as 1
  std::string account;
  std::string costCentre;

  bool operator==(const DisposalAsset&) const = default;
};

/// Reads the asset as it is stored. Nothing when there is no such asset. Throws Failure.
std::optional<DisposalAsset> ReadDisposalAsset(std::int32_t nrCrt);

/// Calculates the asset to `date`, stores the result, and reads the asset like ReadDisposalAsset.
std::optional<DisposalAsset> BringUpTo(std::int32_t nrCrt, const DateTime& date);

/// CURS of an asset; Null and no asset count as 0. Throws Failure.
double RateOf(std::int32_t nrCrt);

/// The price in currency in whole units; 0 for a rate of 0.
double PriceInCurrency(double price, double rate);

/// The two differences between price and residual value. The one in currency is 0 for a rate of 0;
/// an empty box counts as 0.
struct Differences {
  double lei;
  double foreign;
};
Differences DifferencesOf(const Disposal& sale, double rate);

/// The VAT on a price that is left: 19 %, whatever rate was chosen; 0 for the rate with COD 0.
double VatOnPrice(double price, double vatCode);

/// The VAT when a rate is chosen: by its own percentage.
double VatAtRate(double price, double percent);

/// What the user should know about an asset that has left before: when and how; empty for one that
/// has not. Throws Failure.
std::string LeftBefore(std::int32_t nrCrt);

// ---- Checks -------------------------------------------------------------------------------------

/// The message for a box that must contain a number from 0 on.
std::string NotANumberText(amount::Place box);

/// Why a disposal is refused: the message, its icon, and the box to go to.
struct DisposalRefusal {
  enum class Box { kNone, kPrice, kExpense, kCustomer, kRevenue, kVat, kClient, kDocument };
  std::string message;
  long icon = 0;
  Box box = Box::kNone;
};

/// The seven checks of a sale, in order; a scrapping passes.
std::optional<DisposalRefusal> EsteIesireValida(const Disposal& disposal);

/// The checks against the company: the exchange rate, the month of the last calculation, and that
/// the client still exists. `rate` becomes the rate of the notes; a Null one is 1. Throws Failure.
std::optional<DisposalRefusal> CheckCompany(const Disposal& disposal, double& rate);

/// The notes that stand under the document of a sale before it is saved.
struct SaleNoteUse {
  std::vector<std::string> own;  ///< the journals of `others` that were left out, see NotesUnder
  DocumentUse others;            ///< deleted by the sale though they are not its own
};

/// All notes under the document of the sale; those of a sale are its own when this asset alone was
/// sold under it before. Called before the row is saved. Throws Failure.
SaleNoteUse FindSaleNoteUse(const Disposal& sale);

// ---- Saving -------------------------------------------------------------------------------------

/// The fields of the row in the order in which they are written. Throws Failure 13 and 6 for boxes
/// that hold no number.
FieldValues DisposalFields(const Disposal& disposal, const std::string& user);

/// Writes the asset's row in its own transaction. Throws Failure 3021 when the asset no longer
/// exists; the row is then unchanged, as after every failure.
void pSalvareIesire(const Disposal& disposal);

/// The note in journal "JV": customer, revenue, collected VAT. Throws Failure 13 and 6.
Note SaleNote(const Disposal& sale, double rate);

/// The note in journal "OD": the asset, its residual value, its depreciation so far. Throws like
/// SaleNote.
Note RetirementNote(const Disposal& sale, double rate, const std::string& depreciationAccount);

/// The depreciation account of an asset account; the empty text when it has none, nothing when the
/// account is not in the table. Throws Failure.
std::optional<std::string> DepreciationAccount(Connection& connection, const std::string& account);

/// The message when the asset account is not in the table.
std::string NotAssociatedText(const std::string& account);

/// Replaces all notes under the document of the sale by its "JV" note, in one transaction. Returns
/// the note. Throws Failure kRowChanged when other notes stand there now than when the user
/// `agreed`, otherwise like cBLLNoteContabile::AddNota; the notes then stay as they were.
Note PostSale(const Disposal& sale, double rate, const SaleNoteUse& agreed);

/// Writes the "OD" note in one transaction and returns it; nothing is written and returned when the
/// asset's account has no association. Throws Failure and then writes nothing.
std::optional<Note> PostRetirement(const Disposal& sale, double rate);

/// Why there are no notes to show yet; empty when SaleNote and RetirementNote can be computed.
std::string NoNoteReason(const Disposal& disposal, double rate);

/// What looks wrong in these notes and stops nothing: a note that does not balance or
/// that will be refused, VAT that differs from the chosen rate. One sentence a line; empty when
/// there is nothing to say.
std::string WarningsOf(const Disposal& sale, const std::vector<Note>& notes);

}  // namespace tevra
