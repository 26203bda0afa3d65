// The mark that every commit of the program writes into the header of a company file. It tells
// whether the changes in a side file belong to the file beside them.
#pragma once

#include <cstdint>

namespace tevra::detail {

/// Stored as the engine's user version. The low half names the commit, the high half the commit
/// before it; 0 in a file that the program has not written yet.
using CommitMark = std::uint32_t;

/// The mark of a commit that follows `before`: a random name, so that two copies of a file which
/// were both worked on differ.
[[nodiscard]] CommitMark NextMark(CommitMark before);

/// True when the commit of `mark` came directly after that of `before`.
constexpr bool Follows(CommitMark mark, CommitMark before) {
  return mark >> 16 == (before & 0xffff);
}

}  // namespace tevra::detail
