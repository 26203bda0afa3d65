// The filter, find and sort texts of a recordset, parsed once and evaluated row by row.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/data/Value.h"

namespace tevra::detail {

/// The number of a field by its name; throws Failure 3265.
using FieldFinder = std::function<std::size_t(const std::string& name)>;
/// The value of a field in the row being tested.
using ValueOf = std::function<const Value&(std::size_t field)>;

/// "FIELD op value AND ..."; see Recordset::SetFilter.
class Criteria {
 public:
  Criteria() = default;
  Criteria(const std::string& text, const FieldFinder& find);
  bool Empty() const { return tests_.empty(); }
  bool Met(const ValueOf& valueOf) const;
  std::vector<std::size_t> Fields() const;  ///< the fields used

 private:
  enum class Operator { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual, Like };
  struct Test {
    std::size_t field;
    Operator op;
    Value value;
  };
  static bool Holds(const Test& test, const Value& value);
  std::vector<Test> tests_;
};

struct SortKey {
  std::size_t field;
  bool descending;
};

/// "FIELD [ASC|DESC], ..."; see Recordset::SetSort.
std::vector<SortKey> ParseSort(const std::string& text, const FieldFinder& find);

}  // namespace tevra::detail
