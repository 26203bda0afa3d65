// Which build this is.
#pragma once

namespace tevra {

inline constexpr int kVersionMajor = 1;
inline constexpr int kVersionMinor = 0;

/// The structure version that this build's template has, and that a company file's VERSIUNE must
/// equal. Every change of the template raises it.
inline constexpr int kRevision = 1;

inline constexpr const char* kApplicationTitle = "Kelnar Tevra";

}  // namespace tevra
