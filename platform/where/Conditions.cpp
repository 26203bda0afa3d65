#include "platform/where/Conditions.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/data/Catalogue.h"
#include "platform/text/Dates.h"
#include "platform/text/Numbers.h"
#include "platform/text/Strings.h"
#include "platform/where/ClauseParts.h"

namespace tevra {

namespace {

struct OperatorInfo {
  const char* caption;
  const char* inText;
  int values;
  bool textOnly;
};

// In the order of WhereOperator.
constexpr std::array<OperatorInfo, 8> kOperators{{
    {"egal cu", " = ", 1, false},
    {"diferit de", " <> ", 1, false},
    {"incepe cu", " incepe cu ", 1, true},
    {"contine", " contine ", 1, true},
    {"intre", " intre ", 2, false},
    {"mai mare decat", " > ", 1, false},
    {"mai mic decat", " < ", 1, false},
    {"gol", " este gol", 0, false},
}};

const OperatorInfo& InfoOf(WhereOperator op) {
  return kOperators.at(static_cast<std::size_t>(op));
}

bool IsWhole(FieldType type) {
  return type == FieldType::Long || type == FieldType::Integer || type == FieldType::Byte;
}

[[noreturn]] void Refuse(const WhereField& field, const std::string& why) {
  throw Failure(kTypeMismatch, "Conditia \"" + field.caption + "\": " + why);
}

// A value as the field compares it: one number, day or text, and all stored values that are equal
// to it lie from `low` to `high`.
struct Compared {
  Value low;
  Value high;
  std::string text;  // in words
};

Compared ComparedNumber(const WhereField& field, const std::string& typed) {
  constexpr double kEqualWithin = 0.0000005;
  double number = 0;
  try {
    number = CDbl(Trim(typed));
  } catch (const Failure&) {
    Refuse(field, "\"" + typed + "\" nu este un numar. Numerele se scriu ca 1.234,56");
  }
  if (!IsWhole(field.type)) return {number - kEqualWithin, number + kEqualWithin, CStr(number)};
  if (std::trunc(number) != number) Refuse(field, "\"" + typed + "\" nu este un numar intreg");
  return {number, number, CStr(number)};
}

Compared ComparedDay(const WhereField& field, const std::string& typed) {
  if (!IsDate(typed)) Refuse(field, "\"" + typed + "\" nu este o data. Datele se scriu 31.12.2026");
  const DateTime day = CDate(typed).Midnight();
  return {day, DateTime(day.Year(), day.Month(), day.Day(), 23, 59, 59), ShortDate(day)};
}

Compared ComparedValue(const WhereField& field, const std::string& typed) {
  if (field.type == FieldType::Text) {
    const bool readable = IsValidUtf8(typed) && typed.find('\0') == std::string::npos;
    if (!readable) Refuse(field, "textul are semne care nu pot fi citite");
    return {typed, typed, "\"" + typed + "\""};
  }
  return field.type == FieldType::DateTime ? ComparedDay(field, typed)
                                           : ComparedNumber(field, typed);
}

WhereClause Between(const WhereField& field, const Condition& condition) {
  if (condition.value.empty() || condition.second.empty()) {
    Refuse(field, "completati ambele capete ale intervalului");
  }
  const Compared from = ComparedValue(field, condition.value);
  const Compared to = ComparedValue(field, condition.second);
  if (CompareValues(from.low, to.high) > 0) {
    Refuse(field, "primul capat al intervalului este mai mare decat al doilea");
  }
  return {clause::FromTo(field.name), {from.low, to.high}, from.text + " si " + to.text};
}

WhereClause OneValue(const WhereField& field, const Condition& condition) {
  const Compared with = ComparedValue(field, condition.value);
  const bool exact = with.low == with.high;
  const std::string& name = field.name;
  switch (condition.op) {
    case WhereOperator::kEqual:
      if (exact) return {name + " = ?", {with.low}, with.text};
      return {clause::FromTo(name), {with.low, with.high}, with.text};
    case WhereOperator::kNotEqual:
      if (exact) return {"(" + name + " <> ? OR " + name + " IS NULL)", {with.low}, with.text};
      return {"(" + name + " < ? OR " + name + " > ? OR " + name + " IS NULL)",
              {with.low, with.high},
              with.text};
    case WhereOperator::kBegins:
      return {clause::Begins(name), clause::PrefixBounds(condition.value), with.text};
    case WhereOperator::kContains:
      return {clause::Contains(name), {clause::ContainsPattern(condition.value)}, with.text};
    case WhereOperator::kGreater:
      return {name + " > ?", {with.high}, with.text};
    default:
      return {name + " < ?", {with.low}, with.text};
  }
}

WhereClause ClauseOfOne(const WhereField& field, const Condition& condition) {
  const std::vector<WhereOperator> known = OperatorsOf(field);
  if (std::find(known.begin(), known.end(), condition.op) == known.end()) {
    Refuse(field, std::string("nu se poate compara prin \"") + CaptionOf(condition.op) + "\"");
  }
  const std::string words = field.caption + InfoOf(condition.op).inText;
  if (condition.op == WhereOperator::kEmpty) {
    return {clause::Empty(field.name, field.type == FieldType::Text), {}, words};
  }
  WhereClause made = condition.op == WhereOperator::kBetween ? Between(field, condition)
                                                             : OneValue(field, condition);
  made.text = words + made.text;
  if (!condition.title.empty()) made.text += " (" + condition.title + ")";
  return made;
}

}  // namespace

std::vector<WhereField> WhereFieldsOf(const Connection& connection, const std::string& table,
                                      const std::vector<std::string>& hidden) {
  std::vector<WhereField> fields;
  for (const FieldDef& field : Catalogue(connection).Table(table).fields) {
    const auto hides = [&](const std::string& name) { return EqualNoCase(name, field.name); };
    if (field.type == FieldType::YesNo || std::any_of(hidden.begin(), hidden.end(), hides)) {
      continue;
    }
    fields.push_back({table + "." + field.name, field.name, field.type, field.size});
  }
  return fields;
}

int ValueCount(WhereOperator op) {
  return InfoOf(op).values;
}

const char* CaptionOf(WhereOperator op) {
  return InfoOf(op).caption;
}

std::vector<WhereOperator> OperatorsOf(const WhereField& field) {
  std::vector<WhereOperator> operators;
  for (std::size_t i = 0; i < kOperators.size(); ++i) {
    if (kOperators[i].textOnly && field.type != FieldType::Text) continue;
    operators.push_back(static_cast<WhereOperator>(i));
  }
  return operators;
}

const WhereField* FindField(const std::vector<WhereField>& fields, const std::string& name) {
  const auto found = std::find_if(fields.begin(), fields.end(), [&](const WhereField& field) {
    return EqualNoCase(field.name, name);
  });
  return found == fields.end() ? nullptr : &*found;
}

bool IsBlank(const Condition& condition) {
  return ValueCount(condition.op) > 0 && condition.value.empty() && condition.second.empty();
}

WhereClause ClauseOf(const std::vector<WhereField>& fields,
                     const std::vector<Condition>& conditions) {
  WhereClause all;
  for (const Condition& condition : conditions) {
    if (IsBlank(condition)) continue;
    const WhereField* field = FindField(fields, condition.field);
    if (!field) throw Failure(kInvalidArgument, "Camp necunoscut: " + condition.field);
    const WhereClause one = ClauseOfOne(*field, condition);
    all.sql += (all.sql.empty() ? "" : " AND ") + one.sql;
    all.text += (all.text.empty() ? "" : " SI ") + one.text;
    all.params.insert(all.params.end(), one.params.begin(), one.params.end());
  }
  return all;
}

}  // namespace tevra
