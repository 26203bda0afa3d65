#include <optional>

#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "engine/Module3.h"
#include "platform/data/Connection.h"
#include "platform/text/Dates.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// Where the file is not to blame, the run says which asset is.
std::string Reason(const Failure& failure) {
  const std::string& file = CurrentSession().selectedDatabase;
  const bool namesFile = failure.Description().find(file) != std::string::npos;
  return ErrorText(failure, namesFile || failure.Source().empty() ? file : failure.Source());
}

}  // namespace

DateTime ParseDate(const std::string& text) {
  const std::optional<DateTime> date = WholeDate(text);
  if (!date || *date != date->Midnight()) {
    throw Refusal("Data \"" + text + "\" nu este corecta (ZZ.LL.AAAA) !");
  }
  return *date;
}

void Calculate(const DateTime& date, std::ostream& out) {
  try {
    Connection connection(CurrentSession().connectionString);
    out << MonthDoneText(RunMonth(connection, date)) << '\n';
  } catch (const Failure& failure) {
    throw Refusal(std::string(kMonthFailedText) + '\n' + Reason(failure));
  }
}

}  // namespace tevra::batch
