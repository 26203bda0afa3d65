// The version of this build.
#pragma once

namespace tevra {

inline constexpr int kVersionMajor = 1;
inline constexpr int kVersionMinor = 0;

/// The structure version of this build's template, which a company file's VERSIUNE must equal.
/// Every change of the template raises it.
inline constexpr int kRevision = 2;

inline constexpr const char* kApplicationTitle = "Kelnar Tevra";

}  // namespace tevra
