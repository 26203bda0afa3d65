#include <algorithm>
#include <optional>

#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "engine/Module3.h"
#include "platform/data/Connection.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// Each "9" of the pattern a digit, other characters as they stand.
bool HasForm(const std::string& text, const std::string& pattern) {
  return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(),
                    [](char c, char p) { return p == '9' ? c >= '0' && c <= '9' : c == p; });
}

// Where the file is not to blame, the run says which asset is.
std::string Reason(const Failure& failure) {
  const std::string& file = CurrentSession().selectedDatabase;
  const bool namesFile = failure.Description().find(file) != std::string::npos;
  return ErrorText(failure, namesFile || failure.Source().empty() ? file : failure.Source());
}

}  // namespace

// Stricter than a date box: a script that says 1.2.06 may not mean what we would take it for.
DateTime ParseDate(const std::string& text) {
  std::optional<DateTime> date;
  if (HasForm(text, "9999-99-99")) date = DateTime::FromIso(text);
  if (HasForm(text, "99.99.9999")) {
    date = DateTime::FromIso(text.substr(6, 4) + '-' + text.substr(3, 2) + '-' + text.substr(0, 2));
  }
  if (!date) throw Refusal("Data \"" + text + "\" nu este corecta (ZZ.LL.AAAA) !");
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
