// What is done to the catalogue of classification codes.
#pragma once

#include <cstdint>
#include <string>

namespace tevra {

/// The lower limit that the catalogue of HG 2139/2004 gives for a code becomes its normal duration,
/// in one transaction. Returns the number of codes.
std::int64_t TakeLowerLimits(const std::string& connectionString);

}  // namespace tevra
