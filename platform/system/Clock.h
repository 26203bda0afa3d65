// The current date and time, which a test can set.
#pragma once

#include "platform/text/DateTime.h"

namespace tevra::clock {

/// The machine's local date at 00:00, or the date set.
DateTime Today();
/// The machine's local date and time, or the moment set.
DateTime Now();

/// For tests: from now on Today and Now return this moment.
void Set(const DateTime& moment);
void Reset();

}  // namespace tevra::clock
