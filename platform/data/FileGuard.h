// Watches that the file under a connection stays the one that it opened, and marks its commits.
// For the data layer's own sources only.
#pragma once

#include <optional>
#include <string>

#include <sqlite3.h>

#include "platform/data/FileStart.h"
#include "platform/data/OpenFiles.h"

namespace tevra::detail {

/// Another program may put a file under the name of the open one, or write over its content,
/// without any regard to locks. What is then committed or moved into the file would spoil both.
class FileGuard {
 public:
  /// `db` has been opened for writing by this name, which may be a link, and read from.
  FileGuard(sqlite3* db, const std::string& name);

  /// To be called under the write lock, before anything is changed.
  void BeginWork();
  /// To be called under the write lock, before the commit: writes the commit's mark, unless nothing
  /// was changed.
  void EndWork(bool changed);
  /// To be called behind the commit: a file that came while it was written has nothing of it.
  void RequireSameAfterCommit();
  /// To be called before the handle is closed: keeps the engine from moving the waiting changes
  /// into a file that is not theirs. They get a name of their own, and what the replaced file held
  /// together with them is saved beside it.
  void Leave() noexcept;
  /// Throws when the file was found replaced.
  void RequireSame() const;

 private:
  void Check(CommitMark view);
  bool IsMoved() const;
  bool HasContentOf(CommitMark view);
  CommitMark View() const;
  void SetChangesAside();
  void SaveReplaced() const;

  sqlite3* db_;
  std::string name_;
  std::string file_;  // without links
  std::string sideFile_;
  std::string index_;
  std::optional<FileIdentity> fileSeen_;
  std::optional<FileIdentity> sideFileSeen_;
  std::optional<FileIdentity> indexSeen_;
  std::optional<OpenFile> open_;
  FileStart start_;        // as last seen
  CommitMark before_ = 0;  // of the last commit when the work began
  bool isLost_ = false;
};

}  // namespace tevra::detail
