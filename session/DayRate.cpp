#include "session/DayRate.h"

#include "platform/data/RowReader.h"

namespace tevra {

namespace {

// The longest run of days without a bank's day, with some to spare.
constexpr int kOldAfterDays = 10;

}  // namespace

std::optional<DayRate> RateAt(Connection& company, const std::string& currency,
                              const DateTime& day) {
  RowReader rows(company,
                 "select top 1 DATA, CURS from kv_val2 where COD = ? and DATA < ? and CURS > 0 "
                 "order by DATA desc",
                 {currency, day.Midnight().AddDays(1)});
  if (!rows.Next()) return std::nullopt;
  return DayRate{rows.Get(0).AsDateTime().Midnight(), rows.Get(1).AsDouble()};
}

bool IsOldRate(const DayRate& rate, const DateTime& day) {
  return rate.day.AddDays(kOldAfterDays) < day.Midnight();
}

}  // namespace tevra
