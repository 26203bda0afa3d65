// Gives the rows of a grouped command to a report.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/print/BandedReport.h"
#include "platform/shape/ShapedRecordset.h"

namespace tevra {

class ShapedData : public ReportData {
 public:
  /// `by`: the field of the groups.
  ShapedData(ShapedRecordset rows, std::string by);

  std::size_t GroupCount() const override { return rows_.GroupCount(); }
  Rows RowsOf(std::size_t group) const override;
  Value GroupValue(std::size_t group, const std::string& field) const override;
  Value RowValue(std::size_t row, const std::string& field) const override;
  Value GrandTotal(const std::string& field) const override;

 private:
  const ShapedRecordset::Group& Group(std::size_t group) const;
  std::size_t Index(std::map<std::string, std::size_t>& known, const std::string& name,
                    std::size_t (ShapedRecordset::*find)(const std::string&) const) const;

  ShapedRecordset rows_;
  std::string by_;
  // Names are looked up once for the report, a group once for all its rows.
  mutable std::map<std::string, std::size_t> fields_;
  mutable std::map<std::string, std::size_t> totals_;
  mutable std::optional<std::size_t> groupNumber_;
  mutable ShapedRecordset::Group group_;
};

}  // namespace tevra
