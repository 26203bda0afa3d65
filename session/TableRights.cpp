#include "session/TableRights.h"

#include "platform/text/Strings.h"

namespace tevra {

bool MayChangeTable(int userType, const std::string& table) {
  constexpr int kAll = 0;
  constexpr int kReportsOnly = 2;
  if (userType == kAll) return true;
  if (EqualNoCase(table, "UTILIZATORI")) return false;
  const bool settings = EqualNoCase(table, "kv_par") || EqualNoCase(table, "kv_info") ||
                        EqualNoCase(table, "I_COEFAD") || EqualNoCase(table, "kv_setari");
  return !settings || userType != kReportsOnly;
}

}  // namespace tevra
