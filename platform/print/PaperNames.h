// The papers to choose from. A separate header, because the command line's help needs no toolkit.
#pragma once

#include <array>

namespace tevra {

/// The names of Papers(), in the same order; the first is the usual one.
inline constexpr std::array<const char*, 5> kPaperNames{"A4", "A3", "A5", "Letter", "Legal"};

}  // namespace tevra
