// The rate of a day, offered to a box of a card.
#pragma once

#include "platform/forms/Boxes.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The tip of the button in the box of a rate.
inline constexpr const char* kRateOfferTip = "Cursul valutar din ziua achizitiei (F4)";

/// Puts the rate of the company's currency on a day, or on the last day before it that has one,
/// into the box, and says of which day it is. Asks before another number in the box is replaced and
/// before a rate that is much older than the day is taken. True when the box was changed. Throws
/// Failure.
bool OfferRate(NumberBox& box, const DateTime& day);

}  // namespace tevra
