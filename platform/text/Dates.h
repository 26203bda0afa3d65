// Dates in Romanian form: 31.12.2006, the day first.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text/DateTime.h"

namespace tevra {

/// True when CDate accepts the text.
bool IsDate(std::string_view text);

/// Reads "31.12.2006", "31/12/2006", "31-12-2006" (day first, one or two digits; a year of two
/// digits is 1930 to 2029) or "2006-12-31" / "2006/12/31", each with an optional time "10:20" or
/// "10:20:30"; blanks around it are ignored. Throws Failure 13 for anything else, and for days that
/// do not exist.
DateTime CDate(std::string_view text);

/// Reads "31.12.2006" or "2006-12-31" with all digits, and an optional " 10:20:30". It is meant for
/// files and scripts, where 1.2.06 may have another meaning. Returns nothing for any other
/// text.
std::optional<DateTime> WholeDate(std::string_view text);

/// "31.12.2006".
std::string ShortDate(const DateTime& date);

/// The date, followed by " 10:20:30" when it has a time of day.
std::string CStr(const DateTime& date);

/// Formats by "Short Date" or by a mask of d, dd, m, mm, yy, yyyy, hh, nn, ss and other characters,
/// which are copied ("/" becomes the Romanian date separator "."); "m" right after "h" or "hh" and
/// ":" is the minute. Capitals mean the same: "dd.MM.yyyy".
std::string Format(const DateTime& date, std::string_view format);

}  // namespace tevra
