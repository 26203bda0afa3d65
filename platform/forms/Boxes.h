// The boxes of a screen: text, number, yes/no and, in DateBox.h, date, each of which may be bound
// to a field of a data source.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <optional>
#include <string>

#include "platform/forms/Binding.h"
#include "platform/forms/DateBox.h"
#include "platform/forms/Form.h"

namespace tevra {

/// A box for a text. When bound, it accepts no more characters than its field; when empty, it
/// writes Null.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextBox(const char* name, QWidget* parent = nullptr, int maxLength = 0);

  std::string Text() const { return text().toStdString(); }
  void SetText(const std::string& value) { setText(QString::fromStdString(value)); }
  /// Every letter typed becomes a capital.
  void SetUpperCase();

  /// Binds the box; nullptr unbinds it and keeps its text.
  void SetDataField(Adodc* source, const std::string& field = {});

 private:
  Binding* binding_;
  QString loaded_;
};

/// A box for a number. It keeps the exact number beside the text shown, so that a number that
/// nobody retyped does not change. A typed number is formatted when the box is left.
class NumberBox : public QLineEdit, public SettlesTyping {
  Q_OBJECT

 public:
  /// `format`: as for Format of platform/text; empty shows the number with its digits.
  NumberBox(const char* name, const std::string& format, QWidget* parent = nullptr);

  std::string Text() const { return text().toStdString(); }
  bool IsEmpty() const;
  /// True for a number in Romanian form; false for an empty box.
  bool IsNumeric() const;
  /// The number in the box; nothing when it is empty. Throws Failure 13 for any other text.
  std::optional<double> Number() const;
  void SetNumber(std::optional<double> number);
  /// What the box contains: Null, the number with all its digits, or the text that is no number.
  Value Content() const;
  /// Shows a number that was read; nothing for Null. Throws Failure 13 for anything else.
  void SetContent(const Value& number);
  /// Sets a text as if it had been typed; it is formatted when the box is left.
  void SetText(const std::string& text);
  void SettleTyping() override;

  void SetDataField(Adodc* source, const std::string& field = {});

 protected:
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Show(std::optional<double> number);

  std::string format_;
  std::optional<double> number_;
  QString shown_;  // the text of number_; any other text was typed
  Binding* binding_;
  std::optional<double> loaded_;
};

/// A box for yes or no.
class CheckBox : public QCheckBox {
  Q_OBJECT

 public:
  CheckBox(const char* name, const QString& caption, QWidget* parent = nullptr);
  void SetDataField(Adodc* source, const std::string& field = {});

 signals:
  /// It was ticked or cleared: by the program, at once; by the user, behind the event that did it.
  /// The box that he left for it has been left before.
  void Click();

 protected:
  void nextCheckState() override;

 private:
  Binding* binding_;
  bool loaded_ = false;
  bool byUser_ = false;
  bool stopped_ = false;  // by the box that the user left for this one
};

/// One choice of several.
class OptionButton : public QRadioButton {
  Q_OBJECT

 public:
  OptionButton(const char* name, const QString& caption, QWidget* parent = nullptr);

 signals:
  /// It was chosen, also when it was chosen already. Emitted like CheckBox::Click.
  void Click();

 protected:
  void nextCheckState() override;

 private:
  bool byUser_ = false;
  std::optional<bool> letGo_;  // what the box said that the user left for this one
};

}  // namespace tevra
