// The calculations over the company's assets: the monthly run and what belongs to it.
#pragma once

#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// Brings every asset of the open company up to `dataCalcul` and shows how many there were. Any
/// failure shows "Eroare la CALCUL !" and leaves every row as it was.
void CalculLunar(const DateTime& dataCalcul);

/// The run itself: one pass over I_IMO in one transaction of its own on `connection`, which takes
/// the write lock at once. Returns the number of assets. Throws Failure, its source naming the
/// asset where one of them was the reason, with all rows as before: also when there are more than
/// 32767 assets.
int RunMonth(Connection& connection, const DateTime& dataCalcul);

/// Brings the first asset of the open company with this COD up to a date, as a disposal needs it:
/// as if it had not left. What was stored is overwritten; the next monthly run brings it back. A
/// COD that no asset has changes nothing. Throws Failure with the asset as it was.
void CalculImobilizare(const DateTime& dataCalcul, const std::string& cod);

/// The same on a connection, in a transaction of its own; false when no asset has the COD. The
/// failure's source names the asset.
[[nodiscard]] bool CalculateAsset(Connection& connection, const DateTime& dataCalcul,
                                  const std::string& cod);

/// The message of a run that was done, and of one that was not.
std::string MonthDoneText(int assets);
inline constexpr const char* kMonthFailedText = "Eroare la CALCUL !";
inline constexpr const char* kMonthFailedTitle = "Salvare";

/// True when the last calculation of any asset was in the month of `data`; the year is not
/// compared. False when no asset was calculated, and on any failure.
[[nodiscard]] bool IsValidCalcul(const DateTime& data);

/// The normal duration, in years, of a classification code: of the new catalogue after 01.01.2005,
/// else of the old one, by today's date. 0 when the code is not there or has none. Throws Failure.
[[nodiscard]] double DurataNormala(const std::string& cod);

/// The first and the last day of the date's month.
DateTime MonthBegin(const DateTime& date);
DateTime MonthEnd(const DateTime& date);

}  // namespace tevra
