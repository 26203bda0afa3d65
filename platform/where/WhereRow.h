// One row of the condition builder: field, operator, value.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <vector>

#include "platform/where/ValueBox.h"

class QHBoxLayout;

namespace tevra {

/// Its controls are named by what they are and the number of the row; those of the first row have
/// no number.
class WhereRow : public QWidget {
  Q_OBJECT

 public:
  /// `fields` and `lists` must outlive the row.
  WhereRow(const std::vector<WhereField>& fields, ValueLists& lists, QWidget* parent);

  /// Renames the controls for the place among the rows, from 0.
  void SetPlace(int place);
  /// The condition as it stands in the boxes. What is half typed is settled first.
  Condition Get() const;
  /// Shows a condition; of an unknown field nothing. Throws Failure when a list cannot be read.
  void Set(const Condition& condition);
  /// Throws Failure 13 with a message when a box refused what was typed into it.
  void RequireTaken() const;
  /// The box for the value, or the operator when it needs none.
  QWidget* FirstBox() const;
  /// The controls in the order of Tab.
  std::vector<QWidget*> Controls() const;

  QComboBox* Fields() const { return field_; }

 signals:
  void RemoveWanted();
  /// Other boxes stand in the row.
  void BoxesChanged();
  /// The list of the chosen field could not be read.
  void Failed(const QString& why);

 private:
  void FieldChosen();
  void OperatorChosen();
  void OfferOperators(const WhereField& field);
  void MakeBoxes();
  void DropBoxes();
  const WhereField& Field() const;
  WhereOperator Operator() const;

  const std::vector<WhereField>& fields_;
  ValueLists& lists_;
  QHBoxLayout* line_;
  QComboBox* field_;
  QComboBox* operator_;
  QWidget* values_;
  QHBoxLayout* valuesLine_;
  std::vector<ValueBox> boxes_;
  QToolButton* remove_;
  std::string suffix_;
  WhereOperator shown_ = WhereOperator::kEqual;  // the operator of the boxes
  const WhereField* shownField_ = nullptr;
};

}  // namespace tevra
