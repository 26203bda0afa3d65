// The table of clients and suppliers, kv_ter: reading, adding, changing and deleting one of them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/data/Connection.h"
#include "reference/ReferenceTable.h"

namespace tevra {

/// Places in Party::text.
namespace party {
enum Place : std::size_t {
  kCode,
  kName,
  kKind,  ///< C client, F supplier, M both
  kFiscalCode,
  kAddress,
  kPostalCode,
  kTown,
  kCountry,
  kContact,
  kTelephone,
  kFax,
  kEmail,
  kDeliveryAddress,
  kDeliveryPostalCode,
  kDeliveryTown,
  kDeliveryCountry,
  kBank,
  kBankAccount
};
inline constexpr std::size_t kCount = kBankAccount + 1;
}  // namespace party

/// The fields of kv_ter by the places.
inline constexpr std::array<const char*, party::kCount> kPartyFields{
    "COD",     "NUME", "TIP",   "CODFISCAL", "AD",  "CP",    "ORAS",  "TARA",  "REPREZ",
    "TELEFON", "FAX",  "EMAIL", "ADL",       "CPL", "ORASL", "TARAL", "BANCA", "CONTBANCAR"};

/// What a new third party is unless the user says otherwise: a supplier from Romania.
inline constexpr const char* kNewPartyKind = "F";
inline constexpr const char* kHomeCountry = "RO";

/// A third party as texts.
struct Party {
  std::array<std::string, party::kCount> text;  ///< the code is empty before it is stored
  std::string countryCode;                      ///< CT
};

/// The statement of the list, without its order.
std::string PartyListStatement();

/// True for C, F and M, with blanks around it or without.
bool IsPartyKind(std::string_view kind);

/// The third party with a code; nothing when there is none. A country code that is missing is
/// kHomeCountry. Throws Failure.
std::optional<Party> ReadParty(Connection& company, const std::string& code);

/// Adds a third party under the next free code and returns the code. Empty texts are stored as
/// Null. Throws Failure; then nothing was added.
std::int32_t AddParty(Connection& company, const Party& party);

/// Writes all fields of a third party into the row with its code; an empty country code is stored
/// as kHomeCountry. False when there is no such row any more. Throws Failure.
bool ChangeParty(Connection& company, const Party& party);

/// Deletes a third party; false when accounting lines use it, then it stays. Throws Failure.
bool DeleteParty(Connection& company, const std::string& code);

/// The rows of other tables that a deletion would leave without their third party.
const std::vector<ReferenceUser>& UsersOfParty();

/// Writes the balance of each third party, debit less credit of its lines on accounts of class 4,
/// in one transaction. The lines are summed by account, and the sum of the last account remains:
/// who has lines on several accounts shows the balance of the last one only. Returns the number of
/// balances written. Throws Failure; then nothing has changed.
int UpdateBalances(Connection& company);

}  // namespace tevra
