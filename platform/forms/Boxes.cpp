#include "platform/forms/Boxes.h"

#include <utility>

#include "platform/forms/FormsApplication.h"
#include "platform/text/FailureText.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"

namespace tevra {

// ---- Text ---------------------------------------------------------------------------------------

TextBox::TextBox(const char* name, QWidget* parent, int maxLength) : QLineEdit(parent) {
  setObjectName(name);
  if (maxLength > 0) setMaxLength(maxLength);
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_ = QString::fromStdString(value.TextOrEmpty());
                                  setText(loaded_);
                                  setCursorPosition(0);
                                },
                                [this]() -> std::optional<Value> {
                                  if (text() == loaded_) return std::nullopt;
                                  return text().isEmpty() ? Value() : Value(Text());
                                },
                                [this](const FieldDef& field) {
                                  if (field.type == FieldType::Text) setMaxLength(field.size);
                                }});
}

void TextBox::SetUpperCase() {
  connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) {
    const int cursor = cursorPosition();
    setText(QString::fromStdString(UCase(typed.toStdString())));
    setCursorPosition(cursor);
  });
}

void TextBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

// ---- Number -------------------------------------------------------------------------------------

NumberBox::NumberBox(const char* name, const std::string& format, QWidget* parent)
    : QLineEdit(parent), format_(format) {
  setObjectName(name);
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // A retyped text counts as typed, even when it is the same.
  connect(this, &QLineEdit::textEdited, this, [this] {
    number_.reset();
    shown_.clear();
  });
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_.reset();
                                  if (!value.IsNull()) loaded_ = value.AsDouble();
                                  SetNumber(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  const std::optional<double> number = Number();
                                  if (number == loaded_) return std::nullopt;
                                  return number ? Value(*number) : Value();
                                }});
}

bool NumberBox::IsEmpty() const {
  return text().trimmed().isEmpty();
}

bool NumberBox::IsNumeric() const {
  return (number_ && text() == shown_) || tevra::IsNumeric(Text());
}

std::optional<double> NumberBox::Number() const {
  if (number_ && text() == shown_) return number_;
  if (IsEmpty()) return std::nullopt;
  return CDbl(Text());
}

void NumberBox::Show(std::optional<double> number) {
  number_ = number;
  shown_.clear();
  if (number) {
    shown_ = QString::fromStdString(format_.empty() ? CStr(*number) : Format(*number, format_));
  }
  setText(shown_);
  setCursorPosition(0);
}

void NumberBox::SetNumber(std::optional<double> number) {
  Show(number);
}

Value NumberBox::Content() const {
  if (IsEmpty()) return {};
  return IsNumeric() ? Value(*Number()) : Value(Text());
}

void NumberBox::SetContent(const Value& number) {
  Show(number.IsNull() ? std::nullopt : std::optional(number.AsDouble()));
}

void NumberBox::SetText(const std::string& text) {
  number_.reset();
  shown_.clear();
  setText(QString::fromStdString(text));
}

// A text that is no number stays as typed, so that the screen's check can name it.
void NumberBox::SettleTyping() {
  if (text() != shown_ && IsNumeric()) Show(Number());
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
  SettleTyping();
  QLineEdit::focusOutEvent(event);
}

void NumberBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

// ---- Yes or no ----------------------------------------------------------------------------------

CheckBox::CheckBox(const char* name, const QString& caption, QWidget* parent)
    : QCheckBox(caption, parent) {
  setObjectName(name);
  connect(this, &QCheckBox::toggled, this, [this] {
    if (!byUser_) emit Click();
  });
  connect(this, &QCheckBox::clicked, this, [this] {
    if (std::exchange(stopped_, false)) return;
    AfterEvent(this, [this] { emit Click(); });
  });
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_ = !value.IsNull() && value.AsBool();
                                  setChecked(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  if (isChecked() == loaded_) return std::nullopt;
                                  return Value::YesNo(isChecked());
                                }});
}

void CheckBox::nextCheckState() {
  stopped_ = !Form::LeaveBoxFor(this) || !isEnabled();
  if (stopped_) return;
  byUser_ = true;
  QCheckBox::nextCheckState();
  byUser_ = false;
}

void CheckBox::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

// ---- One of several -----------------------------------------------------------------------------

OptionButton::OptionButton(const char* name, const QString& caption, QWidget* parent)
    : QRadioButton(caption, parent) {
  setObjectName(name);
  connect(this, &QRadioButton::toggled, this, [this](bool chosen) {
    if (chosen && !byUser_) emit Click();
  });
  connect(this, &QRadioButton::clicked, this, [this] {
    const std::optional<bool> asked = std::exchange(letGo_, std::nullopt);
    // The toolkit asks an option nothing that is chosen already.
    if (!(asked ? *asked : Form::LeaveBoxFor(this))) return;
    AfterEvent(this, [this] {
      if (isChecked()) emit Click();
    });
  });
}

void OptionButton::nextCheckState() {
  letGo_ = Form::LeaveBoxFor(this) && isEnabled();
  if (!*letGo_) return;
  byUser_ = true;
  QRadioButton::nextCheckState();
  byUser_ = false;
}

}  // namespace tevra
