// Reads the numbers by which commands name an asset or an object.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tevra::batch {

/// The number that a text of digits alone holds; nothing for another text or a number too large.
std::optional<std::int32_t> WholeNumber(const std::string& text);

}  // namespace tevra::batch
