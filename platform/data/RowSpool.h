// Stores any number of rows on disk and reads them by position.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"

namespace tevra {

/// The columns of a statement of the dialect, without running it. Throws Failure -2147217900, also
/// for a statement that returns no rows.
std::vector<FieldInfo> StatementFields(const Connection& connection, const std::string& sql);

/// A snapshot in its own temporary file, which is deleted with it. It does not keep the company
/// file open and holds only a few pages in memory. A full disk throws Failure 61.
class RowSpool {
 public:
  /// An empty spool; Append adds rows.
  explicit RowSpool(std::vector<FieldInfo> fields);
  ~RowSpool();
  RowSpool(RowSpool&&) noexcept;

  /// A value of the row just read, by its field.
  using ValueOf = std::function<Value(std::size_t field)>;

  /// Runs a statement with `params` and stores its rows in their order; calls `taken` for each.
  /// Afterwards the statement is closed. Throws Failure like Connection::Execute.
  RowSpool(const Connection& connection, const std::string& sql, const Values& params,
           const std::function<void(const ValueOf& valueOf)>& taken);

  /// A value for each field.
  void Append(const Values& values);

  std::size_t RowCount() const;
  const std::vector<FieldInfo>& Fields() const;

  /// Throws Failure 3021 for an unknown row, 3265 for an unknown field.
  Value At(std::size_t row, std::size_t field) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
