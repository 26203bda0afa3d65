#include "exchange/ChangesText.h"

#include "platform/text/Numbers.h"

namespace tevra {

namespace {

std::string Counted(std::int64_t count, const char* one, const char* several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

}  // namespace

std::vector<ChangeRow> ChangeRows(const ImportChanges& changes) {
  std::vector<ChangeRow> rows;
  for (const MatchedParty& party : changes.parties) {
    rows.push_back({party.isNew ? "Tert nou" : "Tert asociat", std::to_string(party.branchCode),
                    party.name, std::to_string(party.code)});
  }
  const auto add = [&rows](const char* kind, const std::vector<NewCode>& codes) {
    for (const NewCode& each : codes) rows.push_back({kind, each.code, each.name, each.code});
  };
  add("Cont nou", changes.accounts);
  add("Centru de cost nou", changes.centres);
  add("Jurnal nou", changes.journals);
  return rows;
}

std::string LinesText(const ImportChanges& changes) {
  return Counted(changes.lines.lines, "linie noua", "linii noi") + ", " +
         Counted(changes.replaced, "linie inlocuita", "linii inlocuite") + "; debit " +
         Format(changes.lines.debit, "Standard") + ", credit " +
         Format(changes.lines.credit, "Standard");
}

std::vector<std::string> ImportWarnings(const ImportChanges& changes) {
  std::vector<std::string> warnings;
  if (RoundTo(changes.lines.debit - changes.lines.credit, 2) != 0) {
    warnings.emplace_back("Suma debitelor difera de suma creditelor.");
  }
  if (changes.lines.outside > 0) {
    warnings.push_back(Counted(changes.lines.outside, "linie este", "linii sunt") +
                       " in afara perioadei din antet; un nou import nu le va inlocui.");
  }
  if (changes.nameless > 0) {
    warnings.push_back(Counted(changes.nameless, "tert fara nume nu se poate asocia",
                               "terti fara nume nu se pot asocia") +
                       "; liniile pastreaza codul sucursalei.");
  }
  return warnings;
}

}  // namespace tevra
