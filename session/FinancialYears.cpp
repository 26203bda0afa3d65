#include "session/FinancialYears.h"

#include <cmath>

namespace tevra {

namespace {

enum Dates { kStart, kEnd, kNextStart, kNextEnd, kEntryStart, kEntryEnd };

using Date = std::optional<DateTime>;

bool After(const Date& one, const Date& other) {
  return one && other && *one > *other;
}

bool NotAfter(const Date& one, const Date& other) {
  return one && other && *one <= *other;
}

bool IsOutside(const Date& date, const FinancialYears& d) {
  return After(d[kStart], date) || After(date, d[kNextEnd]);
}

bool LeavesAGap(const Date& end, const Date& next) {
  return end && next && std::floor(next->Serial()) - std::floor(end->Serial()) > 1;
}

}  // namespace

// The two texts about the period of entry differ by a blank.
std::optional<std::string> ValidateYears(const FinancialYears& d) {
  constexpr const char* kRefused = " ! Salvarea nu se poate efectua !";
  const std::pair<bool, const char*> tests[] = {
      {After(d[kStart], d[kEnd]),
       "Data de inceput a exercitiului trebuie sa fie mai mica decat data de sfarsit"},
      {NotAfter(d[kNextStart], d[kEnd]),
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat data de sfarsit a "
       "exercitiului N"},
      {After(d[kNextStart], d[kNextEnd]),
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mica decat data de sfarsit"},
      {After(d[kEntryStart], d[kEntryEnd]),
       "Data de inceput a perioadei de culegere trebuie sa fie mai mica decat data de sfarsit"},
      {IsOutside(d[kEntryStart], d),
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N,N+1"},
      {After(d[kEntryEnd], d[kNextEnd]),
       "Perioada de culegere trebuie sa fie cuprinsa in exercitiul N, N+1"},
      {LeavesAGap(d[kEnd], d[kNextStart]),
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
      {kStart, After(d[kStart], d[kEnd]), kStartBeforeEnd},
      {kEnd, After(d[kStart], d[kEnd]), kEndAfterStart},
      {kNextStart, After(d[kEnd], d[kNextStart]),
       "Data de inceput a exercitiului N+1 trebuie sa fie mai mare decat data de sfarsit a "
       "exercitiului N!"},
      {kNextStart, After(d[kNextStart], d[kNextEnd]), kStartBeforeEnd},
      {kNextEnd, After(d[kNextStart], d[kNextEnd]), kEndAfterStart},
      {kEntryStart, After(d[kEntryStart], d[kEntryEnd]),
       "Data de inceput a peroadei de culegere trebuie sa fie mai mica decat data de sfarsit!"},
      {kEntryStart, IsOutside(d[kEntryStart], d), kInYears},
      {kEntryEnd, IsOutside(d[kEntryEnd], d), kInYears},
      {kEntryEnd, After(d[kEntryStart], d[kEntryEnd]),
       "Data de sfarsit a perioadei de culegere trebuie sa fie mai mare decat data de inceput !"},
  };
  for (const Test& test : tests) {
    if (test.box == box && test.fails) return test.text;
  }
  return std::nullopt;
}

}  // namespace tevra
