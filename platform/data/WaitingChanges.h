// What is done at an opening when a side file lies beside the company file already.
// For the data layer's own sources only.
#pragma once

#include <sqlite3.h>

namespace tevra::detail {

/// `opened` has a file open for writing and has read nothing of it yet. Nothing happens where no
/// side file and no rollback journal is. When nobody else has the file open, it is checked together
/// with the changes that wait beside it; what does not belong to it is set aside. Throws Failure
/// -2147467259 and changes nothing when the file itself is damaged, when others have it open and
/// the changes beside it are of another file, or when somebody keeps it for himself longer than
/// that.
void SettleWaitingChanges(sqlite3* opened, int busyMilliseconds);

}  // namespace tevra::detail
