// The program's reports, ready to be shown or printed: a grouped command is run on the open company
// and combined with its design and the current captions.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/print/BandedReport.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// The currency for values in lei, in any case; every other one, the empty one too, prints the
/// values in currency.
inline constexpr const char* kLei = "LEI";

/// The monthly charges of the last calculation. Month and year are only printed; where assets were
/// calculated for another month, the header says how many.
struct ChargesRequest {
  std::uint8_t grouping = 0;  ///< 0 account, 1 class, 2 location, 3 cost centre
  std::string currency = kLei;
  int month = 1;
  int year = 2000;
  bool detail = true;  ///< otherwise only groups and totals
};
std::unique_ptr<BandedReport> ChargesReport(const ChargesRequest& request);

/// The purchases from one day to another, both included.
struct PeriodRequest {
  std::uint8_t grouping = 0;  ///< as ChargesRequest; for inventory 1 is the person in charge
  std::string currency = kLei;
  DateTime from;
  DateTime to;
};
std::unique_ptr<BandedReport> PurchasesReport(const PeriodRequest& request);
std::unique_ptr<BandedReport> InventoryReport(const PeriodRequest& request);

/// "Ianuarie" to "Decembrie"; empty for any other number.
std::string MonthName(int month);

}  // namespace tevra
