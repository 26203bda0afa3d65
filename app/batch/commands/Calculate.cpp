#include <optional>

#include "accounting/ChargePostings.h"
#include "app/batch/Refusal.h"
#include "app/batch/commands/Commands.h"
#include "engine/Module3.h"
#include "platform/data/Connection.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "session/Session.h"

namespace tevra::batch {

namespace {

// When the postings fail the month stays calculated; the output says both.
void Post(const DateTime& date, const MonthUse& agreed, std::ostream& out) {
  try {
    Connection connection(CurrentSession().connectionString);
    const ChargesPosted posted = PostCharges(connection, date, agreed);
    out << "Note contabile " << posted.document << ": " << posted.notes
        << (posted.notes == 1 ? " nota, " : " note, ") << Format(posted.lei, "Standard")
        << " lei\n";
  } catch (const Failure& failure) {
    throw Refusal(
        "Luna a fost calculata, dar notele contabile nu au fost scrise !\n" + ReasonText(failure),
        failure);
  }
}

}  // namespace

DateTime ParseDate(const std::string& text) {
  const std::optional<DateTime> date = WholeDate(text);
  if (!date || *date != date->Midnight()) {
    throw Refusal("Data \"" + text + "\" nu este corecta (ZZ.LL.AAAA) !");
  }
  return *date;
}

DateTime ParseMonth(const std::string& text) {
  const std::optional<DateTime> first = WholeDate("01." + text);
  if (!first || *first != first->Midnight()) {
    throw Refusal("Luna \"" + text + "\" nu este corecta (LL.AAAA) !");
  }
  return *first;
}

// Asks before the run: a refusal leaves the company as it was.
void Calculate(const DateTime& date, bool post, std::ostream& out) {
  MonthUse agreed;
  try {
    Connection connection(CurrentSession().connectionString);
    if (post) agreed = OthersUnderMonth(connection, date);
    if (!MayReplace(agreed)) throw Refusal("Nu s-a efectuat nimic !");
    out << MonthDoneText(RunMonth(connection, date)) << '\n';
  } catch (const Failure& failure) {
    throw Refusal(std::string(kMonthFailedText) + '\n' + ReasonText(failure), failure);
  }
  if (post) Post(date, agreed, out);
}

}  // namespace tevra::batch
