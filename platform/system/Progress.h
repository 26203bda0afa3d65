// Reports the progress of long work.
#pragma once

#include <functional>

namespace tevra {

/// Called from time to time with the amount done and the total (0 while it is unknown). Returning
/// false cancels the work.
using Progress = std::function<bool(int done, int of)>;

}  // namespace tevra
