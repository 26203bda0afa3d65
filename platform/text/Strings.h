// Text routines on UTF-8: counted in characters, compared without case as the company file
// compares.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tevra {

/// Upper and lower case, Romanian and the other Latin letters with diacritics too.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);

/// The number of characters; an invalid byte counts as one.
std::size_t Len(std::string_view text);

/// The first, the last `count` characters; the whole text when it has fewer.
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);

/// `count` characters from position `start` (1 is the first). Throws Failure 5 when start is 0.
std::string Mid(std::string_view text, std::size_t start, std::size_t count = std::string::npos);

/// Without the blanks at both ends.
std::string Trim(std::string_view text);

/// Equality and order without the case of the letters A to Z, as the company file's columns
/// compare.
bool EqualNoCase(std::string_view a, std::string_view b);
int CompareNoCase(std::string_view a, std::string_view b);

/// True for text that is well-formed UTF-8 without NUL characters.
bool IsValidUtf8(std::string_view text);

/// Pattern with "*" or "%" (any run of characters) and "?" or "_" (any one), without case.
bool LikeNoCase(std::string_view text, std::string_view pattern);

}  // namespace tevra
