// A date as it is being typed, key by key, into a box that shows another date until then.
#pragma once

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

namespace tevra {

/// The parts of a date in the order in which they are written.
enum class DatePart { kDay, kMonth, kYear };

/// What was typed since the user came to a part of the date. Two digits fill a day or a month, four
/// a year; a separator ends a part before that. More than the parts from there on can take is a
/// date from its day on: eight digits are a whole date, in whichever part they began.
class DateTyping {
 public:
  enum class Step {
    kMore,   ///< may go on
    kWhole,  ///< day, month and a year of four digits are there
    kFull,   ///< the character does not belong to what was typed; it was not taken
  };

  /// Forgets what was typed; the next digit belongs to this part.
  void BeginAt(DatePart part);
  bool IsEmpty() const { return typed_.isEmpty(); }

  /// A digit, or a point for any separator. A separator before the first digit goes to the next
  /// part.
  Step Take(QChar character);
  /// Takes the last character back.
  void TakeBack();

  /// The part that the next digit belongs to.
  DatePart At() const;
  /// The part in which the typing began, as it is read now.
  DatePart Begin() const { return begin_; }
  /// What was typed for a part; empty for one that was not typed.
  QString Of(DatePart part) const;

  /// The date that this means, over the date on show: a part not typed stays, but the day of a
  /// shorter month becomes its last one. A year of two digits is of this century, from 30 on of the
  /// last. Nothing for a date that does not exist or is half typed in its year.
  std::optional<QDate> Over(const QDate& shown) const;

 private:
  struct Groups {
    std::vector<QString> texts;
    bool closed = false;  // a separator stands behind the last one
  };
  static std::optional<Groups> Split(const QString& typed, DatePart begin);
  static bool MayBegin(const Groups& groups);

  QString typed_;
  DatePart begin_ = DatePart::kDay;
};

/// The date that a text means: 31.12.2006, 1/2/2006, 31-12-06, 31122006, 2006-12-31, 31 decembrie
/// 2006, with a time behind it or without. Nothing for any other text.
std::optional<QDate> DateInText(const QString& text);

}  // namespace tevra
