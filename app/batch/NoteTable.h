// Prints an accounting note.
#pragma once

#include <ostream>

#include "accounting/Note.h"

namespace tevra::batch {

/// A row for each line: journal, account, debit, credit. Says so when there are no lines.
void WriteNote(const Note& note, std::ostream& out);

}  // namespace tevra::batch
