#include "session/FinancialYears.h"

#include <cmath>

namespace tevra {

namespace {

enum Dates { kStart, kEnd, kNextStart, kNextEnd, kEntryStart, kEntryEnd };

bool IsOutside(const DateTime& date, const FinancialYears& d) {
  return date < d[kStart] || date > d[kNextEnd];
}

int DaysBetween(const DateTime& from, const DateTime& to) {
  return static_cast<int>(std::floor(to.Serial()) - std::floor(from.Serial()));
}

}  // namespace

// The two texts on the period of entry differ by a blank.
std::optional<std::string> ValidateYears(const FinancialYears& d) {
  constexpr const char* kRefused = " ! Salvarea nu se poate efectua !";
  const std::pair<bool, const char*> tests[] = {
      {d[kStart] > d[kEnd],
       "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit"},
      {d[kNextStart] <= d[kEnd],
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat data de sfarsit a "
       "exercitiului N"},
      {d[kNextStart] > d[kNextEnd],
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mica decat data de sfarsit"},
      {d[kEntryStart] > d[kEntryEnd],
       "Data de inceput a perioadei de culegere trebuie sa fie mai mica decat data de sfarsit"},
      {IsOutside(d[kEntryStart], d),
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1"},
      {d[kEntryEnd] > d[kNextEnd],
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N, N+1"},
      {DaysBetween(d[kEnd], d[kNextStart]) > 1,
       "Data de inceput a exercitiului N+1 trebuie sa fie ziua urmatoare datei de sfarsit a "
       "exercitiului N"},
  };
  for (const auto& [fails, text] : tests) {
    if (fails) return std::string(text) + kRefused;
  }
  return std::nullopt;
}

std::optional<std::string> CheckLeftDate(const FinancialYears& d, int box) {
  constexpr const char* kInYears =
      "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1 !";
  constexpr const char* kStartBeforeEnd =
      "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit!";
  constexpr const char* kEndAfterStart =
      "Data de sfarsit a exercitiului trebuie sa fie mai mare decat data de inceput!";
  struct Test {
    int box;
    bool fails;
    const char* text;
  };
  const Test tests[] = {
      {kStart, d[kStart] > d[kEnd], kStartBeforeEnd},
      {kEnd, d[kEnd] < d[kStart], kEndAfterStart},
      {kNextStart, d[kNextStart] < d[kEnd],
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat data de sfarsit a "
       "exercitiului N!"},
      {kNextStart, d[kNextStart] > d[kNextEnd], kStartBeforeEnd},
      {kNextEnd, d[kNextEnd] < d[kNextStart], kEndAfterStart},
      {kEntryStart, d[kEntryStart] > d[kEntryEnd],
       "Data de inceput a peroadei de culegere trebuie sa fie mai mica decat data de sfarsit!"},
      {kEntryStart, IsOutside(d[kEntryStart], d), kInYears},
      {kEntryEnd, IsOutside(d[kEntryEnd], d), kInYears},
      {kEntryEnd, d[kEntryEnd] < d[kEntryStart],
       "Data de sfarsit a perioadei de culegere trebuie sa fie mai mare decat data de inceput !"},
  };
  for (const Test& test : tests) {
    if (test.box == box && test.fails) return test.text;
  }
  return std::nullopt;
}

}  // namespace tevra
