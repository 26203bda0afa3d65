// When the financial years and the period of entry fit together.
#include <gtest/gtest.h>

#include "session/FinancialYears.h"

namespace tevra::test {
namespace {

// 2026, 2027 and entries in the first half of 2026.
FinancialYears Fitting() {
  return {DateTime(2026, 1, 1),   DateTime(2026, 12, 31), DateTime(2027, 1, 1),
          DateTime(2027, 12, 31), DateTime(2026, 1, 1),   DateTime(2026, 6, 30)};
}

struct Case {
  int box;
  DateTime date;
  const char* text;
};

TEST(FinancialYears, ASaveIsRefusedByTheFirstTestThatFails) {
  const Case kCases[] = {
      {0, DateTime(2026, 1, 1), ""},
      {2, DateTime(2027, 1, 1), ""},
      {2, DateTime(2027, 1, 1, 11, 0, 0), ""},  // a day counts whole
      {4, DateTime(2027, 12, 31),
       "Data de inceput a perioadei de culegere trebuie sa fie mai mica "
       "decat data de sfarsit ! Salvarea nu se poate efectua !"},
      {0, DateTime(2027, 1, 1),
       "Data de inceput a exercitiului trebuie sa fie mai mica decat data "
       "de sfarsit ! Salvarea nu se poate efectua !"},
      {2, DateTime(2026, 12, 31),
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat data de sfarsit a "
       "exercitiului N ! Salvarea nu se poate efectua !"},
      {3, DateTime(2026, 12, 31),
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mica decat "
       "data de sfarsit ! Salvarea nu se poate efectua !"},
      {4, DateTime(2025, 12, 31),
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1 "
       "! Salvarea nu se poate efectua !"},
      {5, DateTime(2028, 1, 1),
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N, N+1 ! "
       "Salvarea nu se poate efectua !"},
      {2, DateTime(2027, 1, 2),
       "Data de inceput a exercitiului N+1 trebuie sa fie ziua urmatoare "
       "datei de sfarsit a exercitiului N ! Salvarea nu se poate efectua !"},
  };
  for (const Case& c : kCases) {
    FinancialYears years = Fitting();
    years[static_cast<std::size_t>(c.box)] = c.date;
    EXPECT_EQ(ValidateYears(years).value_or(""), c.text);
  }
}

TEST(FinancialYears, LeavingADateTellsWhatDoesNotFit) {
  const Case kCases[] = {
      {0, DateTime(2026, 12, 31), ""},
      {0, DateTime(2027, 1, 1),
       "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit!"},
      {1, DateTime(2025, 12, 31),
       "Data de sfarsit a exercitiului trebuie sa fie mai mare decat data de inceput!"},
      {2, DateTime(2026, 12, 30),
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat "
       "data de sfarsit a exercitiului N!"},
      // The same day is let pass here and refused by the save.
      {2, DateTime(2026, 12, 31), ""},
      {2, DateTime(2028, 1, 1),
       "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit!"},
      {3, DateTime(2026, 12, 31),
       "Data de sfarsit a exercitiului trebuie sa fie mai mare decat data de inceput!"},
      {4, DateTime(2026, 7, 1),
       "Data de inceput a peroadei de culegere trebuie sa fie mai mica decat data de sfarsit!"},
      {4, DateTime(2025, 12, 31),
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1 !"},
      {5, DateTime(2028, 1, 1),
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1 !"},
  };
  for (const Case& c : kCases) {
    FinancialYears years = Fitting();
    years[static_cast<std::size_t>(c.box)] = c.date;
    EXPECT_EQ(CheckLeftDate(years, c.box).value_or(""), c.text) << c.box;
  }
  FinancialYears years = Fitting();
  years[4] = DateTime(2026, 3, 1);
  years[5] = DateTime(2026, 2, 1);
  EXPECT_EQ(CheckLeftDate(years, 5).value_or(""),
            "Data de sfarsit a perioadei de culegere trebuie sa fie mai mare decat data de inceput "
            "!");
}

}  // namespace
}  // namespace tevra::test
