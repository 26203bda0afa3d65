// The calculations of the company's assets: the monthly run and related routines.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/data/Connection.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// Calculates every asset of the open company for `dataCalcul` and shows their number. Any failure
/// shows "Eroare la CALCUL !" and leaves all rows unchanged; damage of the file is told behind it.
void CalculLunar(const DateTime& dataCalcul);

/// The run itself: one pass over I_IMO in its own transaction on `connection`, which takes the
/// write lock at once. Returns the number of assets. Throws Failure and leaves all rows unchanged,
/// also when there are more than 32767 assets; if an asset is the reason, the failure's source
/// names it.
int RunMonth(Connection& connection, const DateTime& dataCalcul);

/// Sets what RunMonth calls at the beginning of its transaction. What it throws ends the run, with
/// nothing changed.
void SetBeforeMonth(std::function<void(Connection&)> prepare);

/// Calls that for other work of the month. Throws what it throws.
void PrepareMonth(Connection& connection);

/// Calculates the first asset of the open company with this COD for a date, as a disposal needs it:
/// as if it had not left. The stored values are replaced until the next monthly run. An unknown COD
/// changes nothing. Throws Failure and leaves the asset unchanged.
void CalculImobilizare(const DateTime& dataCalcul, const std::string& cod);

/// The same for the asset with this NRCRT, because several assets may have one COD.
void CalculImobilizare(const DateTime& dataCalcul, std::int32_t nrCrt);

/// The same on a connection, in its own transaction; false when no asset has the COD or the NRCRT.
/// The failure's source names the asset.
[[nodiscard]] bool CalculateAsset(Connection& connection, const DateTime& dataCalcul,
                                  const std::string& cod);
[[nodiscard]] bool CalculateAsset(Connection& connection, const DateTime& dataCalcul,
                                  std::int32_t nrCrt);

/// The message after a successful run and after a failed one.
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
