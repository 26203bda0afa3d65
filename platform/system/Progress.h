// Reports the progress of long work.
#pragma once

#include <functional>

namespace tevra {

/// Called from time to time with the amount done and the total (0 while it is unknown). Returning
/// false cancels the work.
using Progress = std::function<bool(int done, int of)>;

/// Thrown out of work that a Progress cancelled, where the work returns nothing that could say so.
/// It is no failure, and no handler of failures catches it.
struct GivenUp {};

/// Calls `progress`, if there is one; throws GivenUp when it cancels.
inline void Report(const Progress& progress, int done, int of) {
  if (progress && !progress(done, of)) throw GivenUp();
}

}  // namespace tevra
