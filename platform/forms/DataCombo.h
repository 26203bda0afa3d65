// A combo over the rows of a data source: it lists one column and has the value of another.
#pragma once

#include <QComboBox>
#include <QPointer>
#include <functional>
#include <string>

#include "platform/forms/Binding.h"
#include "platform/forms/Form.h"

namespace tevra {

class InputMark;

/// Typing looks for the entry that begins so, that has the text inside, or that stands for what is
/// typed, without case and without the marks of letters. A text that means none, or several, gives
/// way when the box is left, and the box is marked. May itself be bound to a field of another
/// source: a value that the list does not have shows no text and stays until the user picks or
/// types.
class DataCombo : public QComboBox, public SettlesTyping {
  Q_OBJECT

 public:
  explicit DataCombo(const char* name, QWidget* parent = nullptr);

  /// The source of the rows, the column shown and the column of the value. After the source's
  /// Refresh the combo keeps its value, or its text when it has no value.
  void SetRowSource(Adodc* rows);
  void SetListField(const std::string& field);
  void SetBoundColumn(const std::string& field);

  /// The value of the current entry, or the last text set that is not in the list, or the empty
  /// text.
  std::string BoundText() const;
  /// Shows the entry with a value, found without case; no text when there is none.
  void SetBoundText(const std::string& text);
  /// The same, with the text to show for a value that is not in the list.
  void SetBoundText(const std::string& bound, const std::string& text);
  const std::string& BoundColumn() const { return boundColumn_; }
  /// Chooses the entry with a value as if the user had picked it; nothing happens without one.
  void Pick(const std::string& bound);
  std::string Text() const { return currentText().toStdString(); }
  /// Shows a text, whether or not the list has it.
  void SetText(const std::string& text);

  /// Binds the value to a field of another source; nullptr unbinds it.
  void SetDataField(Adodc* source, const std::string& field = {});

  /// Sets what edits the list: a small button in the box and F4 call `open`.
  void SetEditor(std::function<void()> open);

  void SettleTyping() override;
  /// Why the text typed last was not taken; empty when it was.
  const QString& Refused() const;

 signals:
  /// The user picked an entry of the list, or emptied the box.
  void Picked();

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showPopup() override;

 private:
  void Fill();
  std::string Stood() const;
  template <class Holds>
  int OnlyEntry(const Holds& holds) const;
  int EntryOf(const QString& typed) const;
  void TellPicked();

  InputMark* mark_;
  std::function<void()> editor_;
  QPointer<Adodc> rows_;
  std::string listField_;
  std::string boundColumn_;
  Binding* binding_;
  std::string unlisted_;  // the value without an entry
  std::string unlistedText_;
  bool typed_ = false;  // the user typed the text, and it was not looked up yet
  std::string loaded_;
};

}  // namespace tevra
