#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "platform/text/Strings.h"
#include "reference/ExchangeRates.h"
#include "session/DayRate.h"

namespace tevra::batch {

namespace {

RatesFile Read(const std::string& file) {
  try {
    return ReadRatesFile(file);
  } catch (const Failure& failure) {
    throw Refusal(failure.Description(), failure);
  }
}

}  // namespace

void TakeRates(Connection& company, const std::string& file, std::ostream& out) {
  const RatesFile rates = Read(file);
  out << RatesStoredText(StoreRates(company, rates)) << '\n';
}

void PrintRate(Connection& company, const std::string& currency, const DateTime& day,
               std::ostream& out) {
  const auto rate = RateAt(company, currency, day);
  if (!rate) {
    throw Refusal("Nu exista curs " + currency + " pentru " + Value(day).AsText() +
                  " sau dinainte !");
  }
  out << UCase(currency) << ' ' << Value(rate->day).AsText() << ' ' << Value(rate->rate).AsText()
      << '\n';
}

}  // namespace tevra::batch
