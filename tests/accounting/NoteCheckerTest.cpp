// Notes that only an error in the program can write.
#include <limits>

#include "accounting/NoteChecker.h"
#include "platform/text/Invariant.h"
#include "tests/text/Expect.h"

namespace tevra {
namespace {

struct Line {
  int note;
  int line;
  double debit;
  double credit;
};

long Check(const std::vector<Line>& lines,
           NoteChecker::Balance balance = NoteChecker::Balance::kRequired) {
  return FailureOf([&] {
    NoteChecker checker(balance);
    for (const Line& line : lines) checker.Add(line.note, line.line, line.debit, line.credit);
    checker.Finish();
  });
}

TEST(NoteChecker, TakesNotesThatAreWhole) {
  EXPECT_EQ(Check({}), 0);
  EXPECT_EQ(Check({{7, 1, 0, 0.3}, {7, 2, 0.1, 0}, {7, 3, 0.2, 0}, {9, 1, -5, 0}, {9, 2, 0, -5}}),
            0);
  EXPECT_EQ(Check({{-3, 1, 1e12, 0}, {-3, 2, 0, 1e12}}), 0);
  NoteChecker checker;
  checker.Add(1, 1, 1, 0);
  checker.Add(1, 2, 0, 1);
  checker.Add(2, 1, 3, 3);
  checker.Finish();
  EXPECT_EQ(checker.Notes(), 2);
  EXPECT_EQ(checker.Lines(), 3);
}

TEST(NoteChecker, RefusesWhatNoNoteMayBe) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  const std::vector<std::vector<Line>> broken = {
      {{1, 2, 1, 1}},                                                  // begins with line 2
      {{1, 1, 1, 0}, {1, 3, 0, 1}},                                    // a gap
      {{1, 1, 1, 1}, {1, 1, 1, 1}},                                    // a second note 1
      {{2, 1, 1, 1}, {1, 1, 1, 1}},                                    // a number of before
      {{1, 1, 1, 0}, {1, 2, 0, 1.01}},                                 // a ban too much, at the end
      {{1, 1, 1, 0}, {1, 2, 0, 0.99}, {2, 1, 0.99, 0}, {2, 2, 0, 1}},  // and within
      {{1, 1, kInfinite, kInfinite}}};
  for (const auto& lines : broken) EXPECT_EQ(Check(lines), kBrokenInvariant);
  EXPECT_EQ(Check({{1, 1, 5, 0}}, NoteChecker::Balance::kNotRequired), 0) << "a sale";
  EXPECT_EQ(Check({{1, 2, 5, 0}}, NoteChecker::Balance::kNotRequired), kBrokenInvariant);
}

}  // namespace
}  // namespace tevra
