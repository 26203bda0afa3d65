#include "session/Classification.h"

#include "platform/data/Connection.h"

namespace tevra {

std::int64_t TakeLowerLimits(const std::string& connectionString) {
  Connection connection(connectionString);
  Transaction transaction(connection);
  const std::int64_t changed =
      connection.Execute("Update I_CLASIFICARE Set DURNOR_NOU = LIM_INF WHERE LIM_INF IS NOT NULL");
  transaction.Commit();
  connection.Close();
  return changed;
}

}  // namespace tevra
