// The journal in which the engine keeps the pages of a file that it is about to overwrite. The
// engine writes them back at the next opening, whatever file lies under the name by then.
// For the data layer's own sources only.
#pragma once

#include <string>

#include <sqlite3.h>

namespace tevra::detail {

/// The path of the journal of the file that `db` has open.
std::string JournalOf(sqlite3* db);

/// True when a journal with pages to write back lies under this name.
[[nodiscard]] bool HasPages(const std::string& journal);

/// `db` has the file open, and nobody else has. Leaves a journal of this file for the engine and
/// gives any other a name of its own. Writing back is tried on a copy, because the engine would not
/// notice a journal of another file. Throws Failure -2147467259 and changes nothing when the file
/// is damaged both with the journal and without it.
void SettleJournal(sqlite3* db, const std::string& path);

}  // namespace tevra::detail
