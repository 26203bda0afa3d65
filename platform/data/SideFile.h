// The engine's side file: changes that were committed but wait to be moved into the company file.
// For the data layer's own sources only.
#pragma once

#include <string>

#include "platform/data/FileStart.h"

namespace tevra::detail {

enum class Belonging {
  NothingWaits,  ///< the side file has no committed change
  Yes,  ///< its first change continues the file, or the file has some of its changes already
  No,
  Unknown  ///< no mark tells: another program wrote the changes, or the file was never marked
};

/// Whether the changes of a side file belong to the file that starts so. Nobody may be moving
/// changes into the file meanwhile.
[[nodiscard]] Belonging BelongingOf(const FileStart& file, const std::string& sideFile);

/// The same of the file that `db` has open, while others may be writing: true when it is a No that
/// stays.
[[nodiscard]] bool BelongsToAnother(sqlite3* db, const std::string& path,
                                    const std::string& sideFile);

/// The path of a file's side file, and of the index that goes with a side file.
std::string SideFileOf(sqlite3* db);
std::string IndexOf(const std::string& sideFile);

/// A name beside `path` that nothing has yet: with the moment behind it.
std::string NameBeside(const std::string& path);

/// Gives a side file a name of its own, so that nobody takes its changes for those of the file
/// beside it. Returns the new name; "" when that did not succeed.
std::string SetAside(const std::string& sideFile);

}  // namespace tevra::detail
