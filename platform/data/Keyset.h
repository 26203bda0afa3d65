// The rows of a long list: their row ids, and the rows themselves a page at a time.
// For the data layer's own sources only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Database.h"
#include "platform/data/FieldType.h"
#include "platform/data/MoneySum.h"
#include "platform/data/RowIds.h"
#include "platform/data/RowTable.h"
#include "platform/dialect/Rewriter.h"

namespace tevra {
struct FieldInfo;
}

namespace tevra::detail {

/// Runs the statement once for the row ids of one of its tables; rows are then read by id. No
/// statement stays open between two calls, so that other programs can write.
class Keyset {
 public:
  static constexpr std::size_t kPageRows = RowTable::kPageRows;

  /// Nothing when no source of the statement identifies its rows (a join that repeats the rows of
  /// every table). `rewritten`: the statement with the row ids of `sources` at the end of its list.
  /// `totalled`: fields that are added up, by a statement of their own that sees the same rows.
  static std::unique_ptr<Keyset> Open(const std::shared_ptr<Database>& database,
                                      const std::string& rewritten, const Values& params,
                                      const std::vector<FieldInfo>& fields,
                                      const std::vector<dialect::Source>& sources,
                                      const std::vector<std::size_t>& totalled);

  std::size_t RowCount() const { return ids_.size(); }

  /// The sums of the totalled fields when it was opened, in their order.
  const std::vector<MoneySum>& Totals() const { return totals_; }

  /// The values of up to kPageRows rows, followed by the row ids. A deleted row has Nulls except
  /// for its own id.
  std::vector<Values> Fetch(const std::vector<std::size_t>& rows);

  /// These fields of all rows, read in one pass; Nulls for deleted rows.
  std::vector<Values> Scan(const std::vector<std::size_t>& fields);

  /// Registers a row that was written here; a new one gets the next number.
  void Append(const Values& values);
  void Follow(std::size_t row, const Values& values);

 private:
  Keyset(const std::shared_ptr<Database>& database, const std::string& rewritten,
         const Values& params, const std::vector<FieldInfo>& fields, std::size_t sourceCount);
  bool ReadIds(std::size_t source, const std::vector<std::size_t>& totalled);
  void AddUp(const std::vector<std::size_t>& totalled);
  std::string ListOf(const std::string& wanted) const;
  std::string IdAnd(const std::vector<std::size_t>& fields) const;
  Values Missing(std::size_t row) const;
  std::string IdColumn() const;

  std::shared_ptr<Database> database_;
  std::string sql_;
  Values params_;
  std::vector<FieldDef> defs_;  // of the fields, then those of the row ids
  std::vector<bool> typed_;
  std::size_t fieldCount_ = 0;
  std::size_t source_ = 0;  // its row ids identify the rows
  RowIds ids_;              // by row number; 0 for a row without a known id
  std::vector<MoneySum> totals_;
  std::unique_ptr<Statement> page_;  // reset between calls
};

}  // namespace tevra::detail
