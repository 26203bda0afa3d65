#include "platform/where/WhereRow.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "platform/forms/FormsApplication.h"
#include "platform/system/StandardError.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr int kRowsOnShow = 30;

// A list in which a blank goes on with an entry that is being typed ("data s"); alone it opens the
// list.
class Choice : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool typing =
        typed_.isValid() && typed_.elapsed() < QApplication::keyboardInputInterval();
    const bool letter = !event->text().isEmpty() && event->text().at(0).isPrint();
    if (letter && (typing || event->key() != Qt::Key_Space)) typed_.start();
    if (typing && event->key() == Qt::Key_Space) return GoOnWithBlank();
    QComboBox::keyPressEvent(event);
  }

 private:
  void GoOnWithBlank() {
    view()->setCurrentIndex(model()->index(currentIndex(), modelColumn()));
    view()->keyboardSearch(" ");
    const int found = view()->currentIndex().row();
    if (found == currentIndex()) return;
    setCurrentIndex(found);
    emit activated(found);
  }

  QElapsedTimer typed_;  // since the last letter
};

QComboBox* MakeChoice(const char* accessible, int least, QWidget* parent) {
  auto* choice = new Choice(parent);
  choice->setAccessibleName(accessible);
  choice->setToolTip(accessible);
  choice->setMinimumWidth(least);
  choice->setMaxVisibleItems(kRowsOnShow);
  return choice;
}

}  // namespace

WhereRow::WhereRow(const std::vector<WhereField>& fields, ValueLists& lists, QWidget* parent)
    : QWidget(parent), fields_(fields), lists_(lists) {
  line_ = new QHBoxLayout(this);
  line_->setContentsMargins(0, 0, 0, 0);
  field_ = MakeChoice("Campul", 190, this);
  operator_ = MakeChoice("Conditia", 140, this);
  values_ = new QWidget(this);
  valuesLine_ = new QHBoxLayout(values_);
  valuesLine_->setContentsMargins(0, 0, 0, 0);
  remove_ = new QToolButton(this);
  remove_->setText(QString::fromUtf8("\xC3\x97"));
  remove_->setToolTip("Elimina conditia (Alt+Del)");
  remove_->setAccessibleName("Elimina conditia");
  remove_->setFocusPolicy(Qt::StrongFocus);
  line_->addWidget(field_);
  line_->addWidget(operator_);
  line_->addWidget(values_, 1);
  line_->addWidget(remove_);
  for (const WhereField& field : fields_) {
    field_->addItem(QString::fromStdString(field.caption), QString::fromStdString(field.name));
  }
  connect(field_, &QComboBox::activated, this, [this](int) { FieldChosen(); });
  connect(operator_, &QComboBox::activated, this, [this](int) { OperatorChosen(); });
  connect(remove_, &QToolButton::clicked, this, &WhereRow::RemoveWanted);
}

void WhereRow::SetPlace(int place) {
  suffix_ = place == 0 ? "" : std::to_string(place + 1);
  const QString suffix = QString::fromStdString(suffix_);
  field_->setObjectName("cboListaCautare" + suffix);
  operator_->setObjectName("cboConditie" + suffix);
  remove_->setObjectName("cmdElimina" + suffix);
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    boxes_[i].box->setObjectName((i == 0 ? "txtValoare" : "txtPanaLa") + suffix);
  }
}

const WhereField& WhereRow::Field() const {
  return fields_.at(static_cast<std::size_t>(field_->currentIndex()));
}

WhereOperator WhereRow::Operator() const {
  return static_cast<WhereOperator>(operator_->currentData().toInt());
}

Condition WhereRow::Get() const {
  Condition condition{Field().name, Operator()};
  if (!boxes_.empty()) condition.value = boxes_[0].text();
  if (boxes_.size() > 1) condition.second = boxes_[1].text();
  const bool fromList = !Field().list.empty() && Field().type != FieldType::Text;
  if (fromList && boxes_.size() == 1 && !condition.value.empty()) {
    condition.title = lists_.TitleOf(Field(), condition.value);
  }
  return condition;
}

void WhereRow::Set(const Condition& condition) {
  const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const WhereField& field) {
    return EqualNoCase(field.name, condition.field);
  });
  if (found == fields_.end()) return;
  field_->setCurrentIndex(static_cast<int>(found - fields_.begin()));
  OfferOperators(*found);
  operator_->setCurrentIndex(std::max(0, operator_->findData(static_cast<int>(condition.op))));
  MakeBoxes();
  if (!boxes_.empty()) boxes_[0].setText(condition.value);
  if (boxes_.size() > 1) boxes_[1].setText(condition.second);
}

void WhereRow::RequireTaken() const {
  for (const ValueBox& box : boxes_) {
    const QString why = box.refused();
    if (why.isEmpty()) continue;
    throw Failure(kTypeMismatch, "Conditia \"" + Field().caption + "\": " + why.toStdString());
  }
}

QWidget* WhereRow::FirstBox() const {
  return boxes_.empty() ? operator_ : boxes_.front().box;
}

std::vector<QWidget*> WhereRow::Controls() const {
  std::vector<QWidget*> controls{field_, operator_};
  for (const ValueBox& box : boxes_) controls.push_back(box.box);
  controls.push_back(remove_);
  return controls;
}

// ---- Choosing -----------------------------------------------------------------------------------

// The operator stays where the other field has it.
void WhereRow::OfferOperators(const WhereField& field) {
  const WhereOperator before = operator_->count() > 0 ? Operator() : WhereOperator::kEqual;
  operator_->clear();
  for (const WhereOperator op : OperatorsOf(field)) {
    operator_->addItem(CaptionOf(op), static_cast<int>(op));
  }
  operator_->setCurrentIndex(std::max(0, operator_->findData(static_cast<int>(before))));
}

void WhereRow::FieldChosen() {
  if (&Field() == shownField_) return;
  OfferOperators(Field());
  OperatorChosen();
}

// What was typed stays where the same kind of box follows.
void WhereRow::OperatorChosen() {
  const bool keeps =
      shownField_ == &Field() && SameBox(Field(), shown_, Operator()) && !boxes_.empty();
  const std::string first = keeps ? boxes_.front().text() : std::string();
  try {
    MakeBoxes();
  } catch (const std::exception&) {
    emit Failed(QString::fromStdString(ShortErrorText(CaughtFailure())));
    return;
  }
  if (keeps && !boxes_.empty()) boxes_.front().setText(first);
  emit BoxesChanged();
}

void WhereRow::DropBoxes() {
  boxes_.clear();
  while (QLayoutItem* item = valuesLine_->takeAt(0)) {
    if (QWidget* box = item->widget()) {
      box->hide();
      box->setObjectName({});
      box->deleteLater();
    }
    delete item;
  }
}

void WhereRow::MakeBoxes() {
  DropBoxes();
  shownField_ = &Field();
  shown_ = Operator();
  for (int i = 0; i < ValueCount(shown_); ++i) {
    const std::string name = (i == 0 ? "txtValoare" : "txtPanaLa") + suffix_;
    boxes_.push_back(MakeValueBox(*shownField_, shown_, name.c_str(), lists_, values_));
    QWidget* box = boxes_.back().box;
    box->setAccessibleName(i == 0 ? "Valoarea" : "Pana la valoarea");
    if (i > 0) valuesLine_->addWidget(new QLabel("si", values_));
    valuesLine_->addWidget(box, 1);
    box->show();
  }
  if (boxes_.empty()) valuesLine_->addStretch(1);
}

}  // namespace tevra
