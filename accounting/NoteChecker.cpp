#include "accounting/NoteChecker.h"

#include <cmath>

#include "platform/text/Invariant.h"

namespace tevra {

namespace {

constexpr double kHalfBan = 0.005;
constexpr double kTraces = 1e-14;  // of adding binary fractions, as a part of the sum

}  // namespace

void NoteChecker::Add(std::int32_t note, std::int32_t line, double debit, double credit) {
  if (note != note_ || line == 1) {
    EndNote();
    Invariant(notes_ == 0 || note > note_, "doua note contabile au acelasi numar");
    note_ = note;
    line_ = 0;
    debit_ = credit_ = 0;
    ++notes_;
  }
  InvariantEqual(line, line_ + 1, "liniile unei note nu sunt numerotate in ordine");
  Invariant(std::isfinite(debit) && std::isfinite(credit), "o linie contabila nu are o suma");
  line_ = line;
  debit_ += debit;
  credit_ += credit;
  ++lines_;
}

void NoteChecker::Finish() {
  EndNote();
  debit_ = credit_ = 0;
}

void NoteChecker::EndNote() const {
  const bool balanced = std::abs(debit_ - credit_) <= kHalfBan + kTraces * std::abs(debit_);
  Invariant(balanced || balance_ == Balance::kNotRequired,
            "debitul si creditul unei note nu sunt egale");
}

}  // namespace tevra
