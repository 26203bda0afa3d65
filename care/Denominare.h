// Converts a company to the new lei of 1 July 2005: 10,000 old lei are 1 new leu.
#pragma once

#include <functional>
#include <optional>

#include "platform/data/Connection.h"
#include "platform/system/Progress.h"

namespace tevra {

/// True when the company was converted: it lists the old lei among its currencies.
bool IsRedenominated(Connection& company);

/// Asks whether to convert: before 01.07.2005 also whether it is time. False when the user refuses.
bool AgreedToRedenominate();

/// Divides the values of the assets and objects bought before 01.07.2005 by 10,000, each rounded to
/// whole old lei first, sets the minimum value from that day to 1500 and lists the old lei as a
/// currency. A Null date of purchase is not converted. One transaction; false when another program
/// has converted the company in the meantime, nothing is changed then. Throws Failure.
bool Redenominate(Connection& company);

inline constexpr const char* kRedenominatedBefore =
    " Convertirea bazei de date a fost deja facuta.";
inline constexpr const char* kRedenominated = "Baza de date a fost convertita in LEI NOI";

/// Runs a step that takes time, with the pointer and the progress of the front end.
using StepFrame = std::function<void(const std::function<void(const Progress&)>& step)>;

/// IsRedenominated of the session's company. A failure is shown; then nothing is returned.
std::optional<bool> ROL();

/// Asks, backs up and converts the session's company, with the messages that users know. Shows a
/// failure; a failed backup changes nothing. Throws GivenUp.
void Denominare(const StepFrame& frame = [](const auto& step) { step({}); });

}  // namespace tevra
