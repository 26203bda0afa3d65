#include "reports/ShapedData.h"

#include <utility>

#include "platform/text/Strings.h"

namespace tevra {

ShapedData::ShapedData(ShapedRecordset rows, std::string by)
    : rows_(std::move(rows)), by_(std::move(by)) {}

const ShapedRecordset::Group& ShapedData::Group(std::size_t group) const {
  if (groupNumber_ != group) {
    group_ = rows_.GroupAt(group);
    groupNumber_ = group;
  }
  return group_;
}

std::size_t ShapedData::Index(std::map<std::string, std::size_t>& known, const std::string& name,
                              std::size_t (ShapedRecordset::*find)(const std::string&)
                                  const) const {
  auto found = known.find(name);
  if (found == known.end()) found = known.emplace(name, (rows_.*find)(name)).first;
  return found->second;
}

ReportData::Rows ShapedData::RowsOf(std::size_t group) const {
  return {Group(group).first, Group(group).rows};
}

Value ShapedData::GroupValue(std::size_t group, const std::string& field) const {
  if (EqualNoCase(field, by_)) return Group(group).key;
  return Group(group).totals[Index(totals_, field, &ShapedRecordset::TotalIndex)];
}

Value ShapedData::RowValue(std::size_t row, const std::string& field) const {
  return rows_.ValueAt(row, Index(fields_, field, &ShapedRecordset::FieldIndex));
}

Value ShapedData::GrandTotal(const std::string& field) const {
  return rows_.GrandTotal(Index(totals_, field, &ShapedRecordset::TotalIndex));
}

}  // namespace tevra
