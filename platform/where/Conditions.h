// Conditions on the fields of a statement, as a user puts them together: what they are, whether
// they make sense, and the clause that finds the rows.
#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/data/FieldType.h"

namespace tevra {

enum class WhereOperator {
  kEqual,
  kNotEqual,
  kBegins,
  kContains,
  kBetween,
  kGreater,
  kLess,
  kEmpty,
};

/// A field on which conditions can be put.
struct WhereField {
  std::string name;  ///< as in the statement: "Kv_Linii.CONT"
  std::string caption;
  FieldType type = FieldType::Text;
  int size = 255;         ///< Text: characters
  std::string list = {};  ///< a SELECT of the values that are offered and their titles; or empty
};

/// The fields of a table without those in `hidden`, each under its own name as the caption.
/// Yes/no fields are left out. Throws Failure 3265 for an unknown table.
std::vector<WhereField> WhereFieldsOf(const Connection& connection, const std::string& table,
                                      const std::vector<std::string>& hidden);

/// One condition. Values are texts in Romanian form, as they are typed: "1.234,56", "31.12.2026".
struct Condition {
  std::string field;  ///< WhereField::name
  WhereOperator op = WhereOperator::kEqual;
  std::string value = {};
  std::string second = {};  ///< the other end of kBetween
  std::string title = {};   ///< what the list of the field says of `value`

  bool operator==(const Condition&) const = default;
};

/// A clause without WHERE, the values for its "?", and the same in words. All are empty when there
/// is no condition.
struct WhereClause {
  std::string sql;
  Values params;
  std::string text;
};

/// How many values the operator compares with.
int ValueCount(WhereOperator op);
/// The operator in the user's words: "egal cu".
const char* CaptionOf(WhereOperator op);
/// The operators that a field can be compared with.
std::vector<WhereOperator> OperatorsOf(const WhereField& field);
/// The field of that name, without case; nullptr when there is none.
const WhereField* FindField(const std::vector<WhereField>& fields, const std::string& name);

/// True when the condition has no value yet although it needs one; such a condition finds all rows.
bool IsBlank(const Condition& condition);

/// The clause of the conditions that are not blank, joined by AND, in words by SI.
///
/// Texts compare without case, as the columns do. Dates compare by day, whatever their time.
/// Numbers with decimals are equal when they differ by less than a millionth. "Not equal" finds the
/// rows without a value too, "empty" also those with the empty text.
///
/// Throws Failure 5 for an unknown field, 13 with a message for the user for a value that the field
/// cannot have or an interval that lacks an end or runs backwards.
WhereClause ClauseOf(const std::vector<WhereField>& fields,
                     const std::vector<Condition>& conditions);

}  // namespace tevra
