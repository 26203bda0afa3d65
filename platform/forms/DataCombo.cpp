#include "platform/forms/DataCombo.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QIdentityProxyModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>
#include <utility>

#include "platform/forms/BoxButton.h"
#include "platform/forms/FormsApplication.h"
#include "platform/forms/InputMark.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr int kRowsOnShow = 15;
constexpr int kMeasured = 1000;  // entries; measuring more would be slow
constexpr int kWidest = 640;     // pixels of the list
constexpr int kNone = -1;        // no entry
constexpr int kSeveral = -2;     // more than one entry
constexpr int kFoldedRole = Qt::UserRole + 1;

// A text as it is searched: without case and without the marks of its letters.
QString Folded(const QString& text) {
  QString folded = text.toCaseFolded().normalized(QString::NormalizationForm_D);
  folded.removeIf([](QChar each) { return each.category() == QChar::Mark_NonSpacing; });
  return folded;
}

class FoldedTexts : public QIdentityProxyModel {
 public:
  using QIdentityProxyModel::QIdentityProxyModel;
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != kFoldedRole) return QIdentityProxyModel::data(index, role);
    return Folded(QIdentityProxyModel::data(index, Qt::DisplayRole).toString());
  }
};

// Offers the entries that have the typed text anywhere.
class FoldingCompleter : public QCompleter {
 public:
  FoldingCompleter(QAbstractItemModel* entries, QObject* parent) : QCompleter(parent) {
    auto* folded = new FoldedTexts(this);
    folded->setSourceModel(entries);
    setModel(folded);
    setCompletionRole(kFoldedRole);
    setCaseSensitivity(Qt::CaseInsensitive);
    setFilterMode(Qt::MatchContains);
    setCompletionMode(QCompleter::PopupCompletion);
    setMaxVisibleItems(kRowsOnShow);
  }
  QStringList splitPath(const QString& path) const override { return {Folded(path)}; }
  QString pathFromIndex(const QModelIndex& index) const override {
    return index.data(Qt::DisplayRole).toString();
  }
};

}  // namespace

DataCombo::DataCombo(const char* name, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setDuplicatesEnabled(true);  // otherwise Enter would go to the first entry with a text
  setMaxVisibleItems(kRowsOnShow);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
  setCompleter(new FoldingCompleter(model(), this));
  mark_ = new InputMark(this, lineEdit());
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QComboBox::activated, this, [this](int) {
    typed_ = false;
    mark_->Clear();
    TellPicked();
  });
  connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
    typed_ = true;
    mark_->Clear();
  });
  connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { SettleTyping(); });
  binding_ = new Binding(this, {[this](const Value& value) {
                                  loaded_ = value.TextOrEmpty();
                                  SetBoundText(loaded_);
                                },
                                [this]() -> std::optional<Value> {
                                  const std::string bound = BoundText();
                                  if (EqualNoCase(bound, loaded_)) return std::nullopt;
                                  // A text that is no entry neither sets nor clears the value.
                                  if (bound.empty() && !Text().empty()) return std::nullopt;
                                  return bound.empty() ? Value() : Value(bound);
                                }});
}

// The only entry for which this holds; -1 for none and -2 for several.
template <class Holds>
int DataCombo::OnlyEntry(const Holds& holds) const {
  int found = kNone;
  for (int i = 0; i < count(); ++i) {
    if (!holds(i)) continue;
    if (found >= 0) return kSeveral;
    found = i;
  }
  return found;
}

// The entry that a typed text means: of that text, of that value, the only one that begins so, or
// the only one that has it inside. Of several with the same text, the one that was there.
int DataCombo::EntryOf(const QString& typed) const {
  const QString wanted = Folded(typed);
  const int at = currentIndex();
  if (at >= 0 && Folded(itemText(at)) == wanted) return at;
  const int sameText = findText(typed, Qt::MatchFixedString);
  if (sameText >= 0) return sameText;
  const int sameValue = findData(typed, Qt::UserRole, Qt::MatchFixedString);
  if (sameValue >= 0) return sameValue;
  const int begins = OnlyEntry([&](int i) { return Folded(itemText(i)).startsWith(wanted); });
  if (begins != kNone) return begins;
  return OnlyEntry([&](int i) { return Folded(itemText(i)).contains(wanted); });
}

// A text that means no entry gives way to what stood there, and the box says so; an empty one means
// none.
void DataCombo::SettleTyping() {
  if (!std::exchange(typed_, false)) return;
  const std::string before = Stood();
  const QString typed = currentText();
  const int entry = typed.isEmpty() ? kNone : EntryOf(typed);
  if (entry >= 0) {
    unlisted_.clear();
    setCurrentIndex(entry);
    setEditText(itemText(entry));
    lineEdit()->setCursorPosition(0);
  } else if (typed.isEmpty()) {
    SetText("");
  } else {
    SetBoundText(before, std::string(unlistedText_));
    mark_->Show(entry == kSeveral
                    ? QString("\"%1\" se potriveste cu mai multe randuri ale listei").arg(typed)
                    : QString("\"%1\" nu este in lista").arg(typed));
  }
  if (BoundText() != before) TellPicked();
}

const QString& DataCombo::Refused() const {
  return mark_->Why();
}

// What the box stands for while something else is typed into it.
std::string DataCombo::Stood() const {
  return currentIndex() >= 0 ? itemData(currentIndex()).toString().toStdString() : unlisted_;
}

// The list may still be closing.
void DataCombo::TellPicked() {
  AfterEvent(this, [this] { emit Picked(); });
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
  const std::string stood = typed_ ? Stood() : BoundText();
  const std::string unlisted = unlistedText_;
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
  if (typed_) {
    // The user is not done: other rows take nothing from him.
    SetBoundText(stood, unlisted);
    setEditText(text);
    return;
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
  mark_->Clear();
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
  mark_->Clear();
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

void DataCombo::Pick(const std::string& bound) {
  if (findData(QString::fromStdString(bound), Qt::UserRole, Qt::MatchFixedString) < 0) return;
  typed_ = false;
  SetBoundText(bound);
  TellPicked();
}

void DataCombo::SetEditor(std::function<void()> open) {
  const bool first = !editor_;
  editor_ = std::move(open);
  if (!first) return;
  const QAction* action = AddBoxButton(*lineEdit(), "Editarea listei (F4)");
  connect(action, &QAction::triggered, this, [this] { AfterEvent(this, [this] { editor_(); }); });
}

// Without an editor F4 opens the list, as Alt and the arrow do in any case.
void DataCombo::keyPressEvent(QKeyEvent* event) {
  if (editor_ && event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier) {
    AfterEvent(this, [this] { editor_(); });
    return;
  }
  QComboBox::keyPressEvent(event);
}

// Shows the beginning of a text longer than the box.
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
