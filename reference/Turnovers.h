// The turnovers that the chart of accounts keeps of its accounts.
#pragma once

#include "platform/data/Connection.h"

namespace tevra {

/// Writes the sums of debit and credit of all lines of an account into its row of kv_PC, in one
/// transaction. An account without lines keeps what it has. Returns the number of accounts written.
/// Throws Failure; then nothing has changed.
int UpdateTurnovers(Connection& company);

}  // namespace tevra
