#include "platform/shape/ShapedRecordset.h"

#include "platform/data/MoneySum.h"
#include "platform/data/RowSpool.h"
#include "platform/shape/ShapeText.h"
#include "platform/text/Invariant.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

// A sum that is Null when nothing was added.
class NullableSum {
 public:
  void Add(const Value& value) {
    if (value.IsNull()) return;
    sum_.Add(value);
    any_ = true;
  }
  Value Total() const { return any_ ? Value(sum_.Total()) : Value(); }

 private:
  MoneySum sum_;
  bool any_ = false;
};

std::size_t IndexIn(const std::vector<FieldInfo>& fields, const std::string& name) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (EqualNoCase(fields[i].def.name, name)) return i;
  }
  throw Failure(kItemNotFound, "Item not found: " + name);
}

// The group's key, its totals, its first row, its number of rows.
std::vector<FieldInfo> GroupFields(const FieldInfo& key, std::size_t totals) {
  std::vector<FieldInfo> fields = {key};
  fields.resize(totals + 3);
  return fields;
}

// Cuts the rows, which are ordered by key, into groups.
class Grouper {
 public:
  Grouper(std::size_t keyField, std::vector<std::size_t> totalFields, RowSpool& groups)
      : keyField_(keyField),
        totalFields_(std::move(totalFields)),
        groups_(groups),
        grand_(totalFields_.size()) {}

  void Take(const RowSpool::ValueOf& valueOf) {
    Value key = valueOf(keyField_);
    if (row_ == first_ || CompareValues(key_, key) != 0) {
      Finish();
      key_ = std::move(key);
      first_ = row_;
      sums_.assign(totalFields_.size(), {});
    }
    for (std::size_t i = 0; i < totalFields_.size(); ++i) {
      const Value value = valueOf(totalFields_[i]);
      sums_[i].Add(value);
      grand_[i].Add(value);
    }
    ++row_;
  }

  void Finish() {
    if (row_ == first_) return;
    Values group = {key_};
    for (const NullableSum& sum : sums_) group.push_back(sum.Total());
    group.push_back(static_cast<std::int64_t>(first_));
    group.push_back(static_cast<std::int64_t>(row_ - first_));
    groups_.Append(group);
    grouped_ += row_ - first_;
  }

  std::size_t Grouped() const { return grouped_; }  // the rows of all finished groups

  Values GrandTotals() const {
    Values totals;
    for (const NullableSum& sum : grand_) totals.push_back(sum.Total());
    return totals;
  }

 private:
  std::size_t keyField_;
  std::vector<std::size_t> totalFields_;
  RowSpool& groups_;
  std::vector<NullableSum> grand_;  // added from the rows, because the groups' totals are rounded
  std::vector<NullableSum> sums_;   // of the current group
  Value key_;
  std::size_t first_ = 0;
  std::size_t row_ = 0;
  std::size_t grouped_ = 0;
};

}  // namespace

struct ShapedRecordset::State {
  ShapeText text;
  RowSpool groups;
  RowSpool rows;
  Values grandTotals;

  static std::shared_ptr<const State> Open(const Connection& connection, ShapeText text,
                                           const Values& params) {
    const std::vector<FieldInfo> fields = StatementFields(connection, text.statement);
    const std::size_t key = IndexIn(fields, text.by);
    std::vector<std::size_t> totals;
    for (const ShapeTotal& total : text.totals) totals.push_back(IndexIn(fields, total.field));
    RowSpool groups(GroupFields(fields[key], totals.size()));
    Grouper grouper(key, totals, groups);
    RowSpool rows(connection, InGroupOrder(text.statement, key), params,
                  [&](const RowSpool::ValueOf& valueOf) { grouper.Take(valueOf); });
    grouper.Finish();
    InvariantEqual(static_cast<std::int64_t>(grouper.Grouped()),
                   static_cast<std::int64_t>(rows.RowCount()), "randurile tuturor grupelor");
    return std::make_shared<const State>(
        State{std::move(text), std::move(groups), std::move(rows), grouper.GrandTotals()});
  }
};

ShapedRecordset::ShapedRecordset(const Connection& connection, const std::string& command,
                                 const Values& params) {
  ShapeText text = ReadShape(command);
  try {
    s_ = State::Open(connection, std::move(text), params);
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), failure.Description(), command);
  }
}

const ShapedRecordset::State& ShapedRecordset::S() const {
  if (!s_) throw Failure(kObjectRequired, "Object required: the recordset is not open");
  return *s_;
}

std::size_t ShapedRecordset::GroupCount() const {
  return S().groups.RowCount();
}

std::size_t ShapedRecordset::RowCount() const {
  return S().rows.RowCount();
}

ShapedRecordset::Group ShapedRecordset::GroupAt(std::size_t group) const {
  const State& s = S();
  const std::size_t totals = s.text.totals.size();
  const auto number = [&](std::size_t field) {
    return static_cast<std::size_t>(s.groups.At(group, field).Whole());
  };
  Group found{s.groups.At(group, 0), {}, number(totals + 1), number(totals + 2)};
  for (std::size_t i = 0; i < totals; ++i) found.totals.push_back(s.groups.At(group, i + 1));
  return found;
}

const std::vector<FieldInfo>& ShapedRecordset::Fields() const {
  return S().rows.Fields();
}

std::size_t ShapedRecordset::FieldIndex(const std::string& name) const {
  return IndexIn(S().rows.Fields(), name);
}

std::size_t ShapedRecordset::TotalIndex(const std::string& name) const {
  const auto& totals = S().text.totals;
  for (std::size_t i = 0; i < totals.size(); ++i) {
    if (EqualNoCase(totals[i].name, name)) return i;
  }
  throw Failure(kItemNotFound, "Item not found: " + name);
}

Value ShapedRecordset::ValueAt(std::size_t row, std::size_t field) const {
  return S().rows.At(row, field);
}

Value ShapedRecordset::GrandTotal(std::size_t total) const {
  const Values& totals = S().grandTotals;
  if (total >= totals.size()) {
    throw Failure(kItemNotFound, "Item not found: " + std::to_string(total));
  }
  return totals[total];
}

}  // namespace tevra
