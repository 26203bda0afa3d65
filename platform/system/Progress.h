// How far long work is, told by what works to whoever waits.
#pragma once

#include <functional>

namespace tevra {

/// Told from time to time: what is done, of how much (0 while nobody knows). False gives the work
/// up.
using Progress = std::function<bool(int done, int of)>;

}  // namespace tevra
