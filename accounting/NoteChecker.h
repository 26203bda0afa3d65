// What holds of every accounting note that the program writes.
#pragma once

#include <cstdint>

namespace tevra {

/// Follows the lines of one or more notes in the order in which they are written. Throws Failure
/// kBrokenInvariant, so that the caller's transaction rolls back, when the lines of a note are not
/// numbered 1, 2, 3, .., when two notes have one number, and when a note does not balance.
class NoteChecker {
 public:
  /// A sale's note does not balance by itself: its lines follow the sale's own rules.
  enum class Balance { kRequired, kNotRequired };

  explicit NoteChecker(Balance balance = Balance::kRequired) : balance_(balance) {}

  /// A line as it was written.
  void Add(std::int32_t note, std::int32_t line, double debit, double credit);

  /// No line comes any more: the last note is whole.
  void Finish();

  [[nodiscard]] int Notes() const { return notes_; }
  [[nodiscard]] int Lines() const { return lines_; }

 private:
  void EndNote() const;

  Balance balance_;
  std::int32_t note_ = 0;  // the one being written
  std::int32_t line_ = 0;  // its last one
  double debit_ = 0;
  double credit_ = 0;
  int notes_ = 0;
  int lines_ = 0;
};

}  // namespace tevra
