// The box for a value of a condition: the editor that suits the field.
#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/data/Recordset.h"
#include "platform/forms/Adodc.h"
#include "platform/where/Conditions.h"

namespace tevra {

/// The lists of values that fields offer, each read once when a box first needs it.
class ValueLists {
 public:
  explicit ValueLists(QWidget* owner) : owner_(owner) {}
  void SetConnectionString(std::string connectionString);
  /// The rows of a field's list: VALOARE and TEXT, the value followed by its title. Throws Failure.
  Adodc& Of(const WhereField& field);
  /// The title of a value; empty when the list does not have it.
  std::string TitleOf(const WhereField& field, const std::string& value);

 private:
  QWidget* owner_;
  std::string connectionString_;
  std::map<std::string, Adodc*> lists_;  // by the list's statement
};

/// A box, and how its value is read and set as the text of a Condition.
struct ValueBox {
  QWidget* box = nullptr;
  std::function<std::string()> text;
  std::function<void(const std::string& text)> setText;
  /// Why what was typed last was not taken; empty when it was.
  std::function<QString()> refused;
};

/// Makes a box: a date, a number, the field's list where the operator compares with one whole
/// value, otherwise a text. Throws Failure when the list cannot be read.
ValueBox MakeValueBox(const WhereField& field, WhereOperator op, const char* name,
                      ValueLists& lists, QWidget* parent);

/// True when both operators use the same kind of box for the field.
bool SameBox(const WhereField& field, WhereOperator a, WhereOperator b);

}  // namespace tevra
