// Notes that stand under a document already and that saving under it would delete.
#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace tevra {

struct DocumentUse {
  std::string document;
  int notes = 0;
  double lei = 0;  ///< the sum of their debits
};

/// The notes under `document`, except the caller's earlier ones: `own` has their journals, at most
/// one note in each. Where a journal of `own` has several notes, nobody can tell which one is the
/// caller's, and all of them count. Throws Failure.
DocumentUse NotesUnder(Connection& connection, const std::string& document,
                       const std::vector<std::string>& own = {});

/// Throws Failure kRowChanged when `now` differs from what the user `agreed` to, because others
/// wrote in the meantime. Called in the transaction that deletes the notes.
void RequireUnchanged(const DocumentUse& agreed, const DocumentUse& now);

/// Asks before these notes are deleted, with "Nu" as the default button. True without a question
/// when there are none.
bool MayDelete(const DocumentUse& use);

}  // namespace tevra
