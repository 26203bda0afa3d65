// The boxes of a screen: text, number, date and yes/no, each of which may be bound to a field of a
// data source.
#pragma once

#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QRadioButton>
#include <optional>
#include <string>

#include "platform/forms/Binding.h"
#include "platform/text/DateTime.h"

namespace tevra {

/// A box for a text. Bound, it takes no more characters than its field; empty, it writes Null.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextBox(const char* name, QWidget* parent = nullptr, int maxLength = 0);

  std::string Text() const { return text().toStdString(); }
  void SetText(const std::string& value) { setText(QString::fromStdString(value)); }
  /// Every letter typed becomes a capital.
  void SetUpperCase();

  /// Binds the box; no data source cuts it loose and leaves its text.
  void SetDataField(Adodc* source, const std::string& field = {});
  const std::string& DataField() const { return binding_->Field(); }

 private:
  Binding* binding_;
  QString loaded_;
};

/// A box for a number, which it holds in full beside the text that it shows: what nobody typed over
/// stays to the last bit. What is typed settles into the format when the box is left.
class NumberBox : public QLineEdit {
  Q_OBJECT

 public:
  /// `format`: as for Format of platform/text; empty shows the number with its digits.
  NumberBox(const char* name, const std::string& format, QWidget* parent = nullptr);

  std::string Text() const { return text().toStdString(); }
  bool IsEmpty() const;
  /// True for a number in Romanian form; an empty box holds none.
  bool IsNumeric() const;
  /// The number in the box; nothing when it is empty. Throws Failure 13 for any other text.
  std::optional<double> Number() const;
  void SetNumber(std::optional<double> number);
  /// Puts a text in as if it had been typed; it settles when the box is left.
  void SetText(const std::string& text);

  void SetDataField(Adodc* source, const std::string& field = {});

 protected:
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Settle();
  void Show(std::optional<double> number);

  std::string format_;
  std::optional<double> number_;
  QString shown_;  // the text of number_; another text in the box was typed
  Binding* binding_;
  std::optional<double> loaded_;
};

/// A date picker; a date carries 00:00. A Null date stands empty until a day is picked or typed.
class DateBox : public QDateEdit {
  Q_OBJECT

 public:
  /// `format`: the calendar's own notation, such as "dd.MM.yyyy" or "d/MM/yyyy".
  explicit DateBox(const char* name, QWidget* parent = nullptr,
                   const QString& format = "dd.MM.yyyy");

  std::optional<DateTime> Date() const;
  void SetDate(std::optional<DateTime> date);
  /// The box always has a date.
  void SetRequired();

  void SetDataField(Adodc* source, const std::string& field = {});

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void StartAtToday();
  std::optional<QDate> TakeTyped(const QKeyEvent& event);
  void GoToNextPart();
  void TakeUnfinished();

  QString typed_;  // of a date being typed from its day on: digits, a point for a separator
  Binding* binding_;
  std::optional<DateTime> loaded_;
};

/// A box for yes or no.
class CheckBox : public QCheckBox {
  Q_OBJECT

 public:
  CheckBox(const char* name, const QString& caption, QWidget* parent = nullptr);
  void SetDataField(Adodc* source, const std::string& field = {});

 signals:
  /// It was ticked or cleared: by the program, at once; by the user, once the box that he left has
  /// been heard.
  void Click();

 protected:
  void nextCheckState() override;

 private:
  Binding* binding_;
  bool loaded_ = false;
  bool byUser_ = false;
};

/// One choice of several.
class OptionButton : public QRadioButton {
  Q_OBJECT

 public:
  OptionButton(const char* name, const QString& caption, QWidget* parent = nullptr);

 signals:
  /// It was chosen, also when it stood already: as CheckBox::Click.
  void Click();

 protected:
  void nextCheckState() override;

 private:
  bool byUser_ = false;
};

}  // namespace tevra
