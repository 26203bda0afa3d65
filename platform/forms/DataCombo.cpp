#include "platform/forms/DataCombo.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QWheelEvent>
#include <utility>

#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr int kRowsOnShow = 15;
constexpr int kMeasured = 1000;  // entries; measuring more would be felt
constexpr int kWidest = 640;     // pixels of the list

}  // namespace

DataCombo::DataCombo(const char* name, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setDuplicatesEnabled(true);  // else Enter would go to the first entry of a text
  setMaxVisibleItems(kRowsOnShow);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  completer()->setCaseSensitivity(Qt::CaseInsensitive);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QComboBox::activated, this, [this](int) {
    typed_ = false;
    emit Picked();
  });
  connect(lineEdit(), &QLineEdit::textEdited, this, [this] { typed_ = true; });
  connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { TakeTyped(); });
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_ = value.TextOrEmpty();
                                  SetBoundText(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  const std::string bound = BoundText();
                                  if (EqualNoCase(bound, loaded_)) return std::nullopt;
                                  // A text that is no entry is no value to keep or to clear.
                                  if (bound.empty() && !Text().empty()) return std::nullopt;
                                  return bound.empty() ? Value() : Value(bound);
                                }});
}

// The entry that a typed text means: of that text, of that value, or the only one that begins so.
// Of several alike, the one that was there.
int DataCombo::EntryOf(const QString& typed) const {
  const int at = currentIndex();
  if (at >= 0 && itemText(at).compare(typed, Qt::CaseInsensitive) == 0) return at;
  const int sameText = findText(typed, Qt::MatchFixedString);
  if (sameText >= 0) return sameText;
  const int sameValue = findData(typed, Qt::UserRole, Qt::MatchFixedString);
  if (sameValue >= 0) return sameValue;
  const int first = findText(typed, Qt::MatchStartsWith);
  if (first < 0) return -1;
  for (int i = first + 1; i < count(); ++i) {
    if (itemText(i).startsWith(typed, Qt::CaseInsensitive)) return -1;
  }
  return first;
}

// A text that means no entry gives way to what stood there; an empty one means none.
void DataCombo::TakeTyped() {
  if (!std::exchange(typed_, false)) return;
  const std::string before =
      currentIndex() >= 0 ? itemData(currentIndex()).toString().toStdString() : unlisted_;
  const int entry = currentText().isEmpty() ? -1 : EntryOf(currentText());
  if (entry >= 0) {
    unlisted_.clear();
    setCurrentIndex(entry);
    setEditText(itemText(entry));
    lineEdit()->setCursorPosition(0);
  } else if (currentText().isEmpty()) {
    SetText("");
  } else {
    SetBoundText(before, std::string(unlistedText_));
  }
  if (BoundText() != before) emit Picked();
}

void DataCombo::SetRowSource(Adodc* rows) {
  if (rows_) disconnect(rows_, nullptr, this, nullptr);
  rows_ = rows;
  if (rows_) connect(rows_, &Adodc::RowsChanged, this, [this] { Fill(); });
  Fill();
}

void DataCombo::SetListField(const std::string& field) {
  listField_ = field;
  Fill();
}

void DataCombo::SetBoundColumn(const std::string& field) {
  boundColumn_ = field;
  Fill();
}

void DataCombo::Fill() {
  TakeTyped();
  const QString text = currentText();
  const std::string stood = BoundText();
  const QSignalBlocker quiet(this);
  clear();
  if (rows_ && rows_->Recordset().IsOpen()) {
    Recordset rows = rows_->Recordset().Clone();
    const auto list = rows.FindField(listField_);
    const auto bound = rows.FindField(boundColumn_);
    for (; list && bound && !rows.Eof(); rows.MoveNext()) {
      addItem(QString::fromStdString(rows.Get(*list).TextOrEmpty()),
              QString::fromStdString(rows.Get(*bound).TextOrEmpty()));
    }
  }
  SetBoundText(stood, stood.empty() ? std::string() : text.toStdString());
  if (currentIndex() < 0 && stood.empty() && !text.isEmpty()) SetText(text.toStdString());
}

std::string DataCombo::BoundText() const {
  const int index = currentIndex();
  if (index < 0) return typed_ ? std::string() : unlisted_;
  if (itemText(index) != currentText()) return {};
  return itemData(index).toString().toStdString();
}

void DataCombo::SetBoundText(const std::string& text) {
  for (int i = 0; i < count() && !text.empty(); ++i) {
    if (!EqualNoCase(itemData(i).toString().toStdString(), text)) continue;
    unlisted_.clear();
    setCurrentIndex(i);
    lineEdit()->setCursorPosition(0);
    return;
  }
  setCurrentIndex(-1);
  setEditText({});
  unlisted_ = text;
  unlistedText_.clear();
}

void DataCombo::SetBoundText(const std::string& bound, const std::string& text) {
  SetBoundText(bound);
  if (currentIndex() >= 0) return;
  setEditText(QString::fromStdString(text));
  lineEdit()->setCursorPosition(0);
  unlistedText_ = text;
}

void DataCombo::SetText(const std::string& text) {
  const QString wanted = QString::fromStdString(text);
  unlisted_.clear();
  unlistedText_.clear();
  setCurrentIndex(text.empty() ? -1 : findText(wanted, Qt::MatchFixedString));
  setEditText(wanted);
  lineEdit()->setCursorPosition(0);
}

void DataCombo::SetDataField(Adodc* source, const std::string& field) {
  binding_->Bind(source, field);
}

void DataCombo::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

// A text longer than the box shows its beginning.
void DataCombo::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason) lineEdit()->setCursorPosition(0);
}

// The list is as wide as its texts need, however narrow the box.
void DataCombo::showPopup() {
  int widest = width();
  for (int i = 0; i < std::min(count(), kMeasured); ++i) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(i)) + 40);
  }
  view()->setMinimumWidth(std::min(widest, kWidest));
  QComboBox::showPopup();
}

}  // namespace tevra
