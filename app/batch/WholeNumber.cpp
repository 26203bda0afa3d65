#include "app/batch/WholeNumber.h"

#include <charconv>

namespace tevra::batch {

std::optional<std::int32_t> WholeNumber(const std::string& text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace tevra::batch
