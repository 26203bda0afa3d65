#include "platform/forms/DataCombo.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QWheelEvent>

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
  setMaxVisibleItems(kRowsOnShow);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  completer()->setCaseSensitivity(Qt::CaseInsensitive);
  completer()->setCompletionMode(QCompleter::PopupCompletion);
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QComboBox::activated, this, [this](int) { emit Picked(); });
  // A text typed to its end means the entry of that text.
  connect(lineEdit(), &QLineEdit::editingFinished, this, [this] {
    const int found = findText(currentText(), Qt::MatchFixedString);
    if (found >= 0 && found != currentIndex()) {
      setCurrentIndex(found);
      emit Picked();
    }
  });
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_ = value.TextOrEmpty();
                                  SetBoundText(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  const std::string bound = BoundText();
                                  // A value that the list does not know stays, unless picked over.
                                  if (bound == loaded_ || (bound.empty() && !Text().empty())) {
                                    return std::nullopt;
                                  }
                                  return bound.empty() ? Value() : Value(bound);
                                }});
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
  const QString text = currentText();
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
  SetText(text.toStdString());
}

std::string DataCombo::BoundText() const {
  const int index = currentIndex();
  if (index < 0 || itemText(index) != currentText()) return {};
  return itemData(index).toString().toStdString();
}

void DataCombo::SetBoundText(const std::string& text) {
  for (int i = 0; i < count() && !text.empty(); ++i) {
    if (!EqualNoCase(itemData(i).toString().toStdString(), text)) continue;
    setCurrentIndex(i);
    return;
  }
  setCurrentIndex(-1);
  setEditText({});
}

void DataCombo::SetText(const std::string& text) {
  const QString wanted = QString::fromStdString(text);
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
