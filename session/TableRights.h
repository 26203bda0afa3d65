// Which tables a user may change, by the user's type.
#pragma once

#include <string>

namespace tevra {

/// The same rights as the menu gives to the screens of the tables: the users are for type 0 alone,
/// the company's settings (kv_par, kv_info, I_COEFAD) for types 0 and 1, all other tables for every
/// type. The table's name in any case.
bool MayChangeTable(int userType, const std::string& table);

}  // namespace tevra
