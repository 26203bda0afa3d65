// Conditions that hold whatever the user does. They are checked in release builds too: an error in
// the program must end the work and roll it back, never reach the company's books.
#pragma once

#include <cstdint>

#include "platform/text/Failure.h"

namespace tevra {

/// The number of such a failure.
inline constexpr long kBrokenInvariant = -2147221493;  // 0x8004000B

/// Where in the source something is called. In place of the standard library's, which clang-tidy 14
/// cannot read.
struct SourcePlace {
  const char* file;
  int line;
  const char* function;

  static constexpr SourcePlace Current(const char* file = __builtin_FILE(),
                                       int line = __builtin_LINE(),
                                       const char* function = __builtin_FUNCTION()) {
    return {file, line, function};
  }
};

namespace detail {

[[noreturn]] void ThrowBrokenInvariant(const char* what, const SourcePlace& place);
[[noreturn]] void ThrowUnequal(const char* what, std::int64_t actual, std::int64_t expected,
                               const SourcePlace& place);

}  // namespace detail

/// Throws Failure kBrokenInvariant unless `holds`. `what` says in Romanian, without diacritics,
/// what is wrong, such as "liniile notei nu sunt numerotate de la 1". Call it within the
/// transaction whose work depends on the condition. It is no check of what a user typed or a file
/// contains.
inline void Invariant(bool holds, const char* what,
                      const SourcePlace& place = SourcePlace::Current()) {
  if (!holds) [[unlikely]]
    detail::ThrowBrokenInvariant(what, place);
}

/// The same for two whole numbers that must be equal; the failure names both.
inline void InvariantEqual(std::int64_t actual, std::int64_t expected, const char* what,
                           const SourcePlace& place = SourcePlace::Current()) {
  if (actual != expected) [[unlikely]]
    detail::ThrowUnequal(what, actual, expected, place);
}

}  // namespace tevra
