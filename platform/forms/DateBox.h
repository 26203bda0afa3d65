// The box for a date.
#pragma once

#include <QDateEdit>
#include <optional>
#include <string>

#include "platform/forms/Binding.h"
#include "platform/forms/DateTyping.h"
#include "platform/forms/Form.h"
#include "platform/text/DateTime.h"

namespace tevra {

class InputMark;

/// A date picker; a date carries 00:00. A Null date stands empty until a day is picked or typed.
///
/// A click or the arrows select a part of the date; digits typed there replace it. Eight digits, or
/// day, month and year with any separators, are a whole date in whichever part they begin, and the
/// next digit begins another one. What is half typed counts when the box is left, and for whoever
/// asks for the date meanwhile. A date that does not exist changes nothing and is marked. Escape
/// drops what is half typed. A pasted date may stand in any usual form.
///
/// With a format without a day it is a box for a month: the arrows go on into the next year, and
/// the day of its date has no meaning.
class DateBox : public QDateEdit, public SettlesTyping {
  Q_OBJECT

 public:
  /// `format`: the calendar's own notation, "dd.MM.yyyy", "d/MM/yyyy" or "MM/yyyy".
  explicit DateBox(const char* name, QWidget* parent = nullptr,
                   const QString& format = "dd.MM.yyyy");

  std::optional<DateTime> Date() const;
  void SetDate(std::optional<DateTime> date);
  /// The box always has a date; else Delete empties it.
  void SetRequired();

  /// Why the date typed last was not taken; empty when it was.
  const QString& Refused() const;

  void SettleTyping() override;
  void SetDataField(Adodc* source, const std::string& field = {});

  void stepBy(int steps) override;

 protected:
  StepEnabled stepEnabled() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void AddCalendar();
  bool IsOptional() const;
  bool HasDate() const;
  bool IsTaken(const QDate& date) const;
  QDate Shown() const;
  void Type(QChar character);
  bool Edit(const QKeyEvent& event);
  void Erase(bool before);
  void Move(int parts);
  void GoTo(DatePart part);
  DatePart PartAt(int cursor) const;
  void ShowTyping();
  void DropTyping();
  void Refuse(const QString& typed);
  void Paste(const QString& text);
  void Copy() const;

  DatePart first_;  // day, or month in a box for a month
  DateTyping typing_;
  DatePart part_ = DatePart::kDay;  // the one selected
  InputMark* mark_;
  Binding* binding_;
  std::optional<DateTime> loaded_;
};

}  // namespace tevra
