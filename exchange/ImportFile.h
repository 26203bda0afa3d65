// Takes the data of a branch into the company of its centre.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "exchange/WorkTables.h"
#include "platform/data/Connection.h"

namespace tevra {

/// A row that the company did not have.
struct NewCode {
  std::string code;
  std::string name;

  bool operator==(const NewCode&) const = default;
};

/// A third party of the branch that has another code here.
struct MatchedParty {
  int branchCode = 0;
  std::string name;
  int code = 0;  ///< here
  bool isNew = false;

  bool operator==(const MatchedParty&) const = default;
};

/// What an import changes.
struct ImportChanges {
  std::vector<NewCode> accounts;
  std::vector<NewCode> centres;
  std::vector<NewCode> journals;
  std::vector<MatchedParty> parties;
  std::int64_t nameless = 0;  ///< third parties without a name, which cannot be matched
  LoadedLines lines;
  std::int64_t replaced = 0;  ///< lines of an earlier import of the period

  bool operator==(const ImportChanges&) const = default;
};

struct ImportRequest {
  LoadRequest load;
  bool dryRun = false;                    ///< does everything and takes it back
  const ImportChanges* agreed = nullptr;  ///< what the user saw: anything else is not written
};

struct Imported {
  enum class Result {
    kDone,
    kFailed,   ///< a step failed and reported it
    kStopped,  ///< the user cancelled
    kChanged,  ///< it would change something else than was agreed on
  };
  Result result = Result::kFailed;
  ImportChanges changes;
};

/// Sets what is done before an import begins to write: a backup. A failure thrown there ends the
/// import before it changed anything, and GivenUp stops it. Nothing is done for a dry run.
void SetBeforeImport(std::function<void()> prepare);

/// Loads the file into the work tables and merges them, all in one transaction that rolls back
/// unless the result is kDone: adds cost centres, accounts, third parties and journals that the
/// company lacks, and replaces the branch's lines of the period. Existing rows keep what they have.
/// Waits some seconds for another import. Throws Failure.
Imported ImportFile(Connection& company, const ImportRequest& request);

}  // namespace tevra
