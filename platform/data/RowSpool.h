// Rows put down on disk once and looked at by their place, however many they are.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"

namespace tevra {

/// The columns that a statement of the dialect gives, without running it. Throws Failure
/// -2147217900, also for a statement that returns no rows.
std::vector<FieldInfo> StatementFields(const Connection& connection, const std::string& sql);

/// A snapshot in a temporary file of its own, which goes with it: it holds neither the company file
/// nor, but for a few pages, memory. A disk without room throws Failure 61.
class RowSpool {
 public:
  /// Without rows; they come by Append.
  explicit RowSpool(std::vector<FieldInfo> fields);
  ~RowSpool();
  RowSpool(RowSpool&&) noexcept;
  RowSpool& operator=(RowSpool&&) noexcept;

  /// A value of the row just taken in, by its field.
  using ValueOf = std::function<Value(std::size_t field)>;

  /// Runs a statement and takes in its rows in their order, telling each to `taken`; "?" in it are
  /// `params`. Afterwards nothing of it is open. Throws Failure as Connection::Execute.
  RowSpool(const Connection& connection, const std::string& sql, const Values& params,
           const std::function<void(const ValueOf& valueOf)>& taken);

  /// A value for each field.
  void Append(const Values& values);

  std::size_t RowCount() const;
  const std::vector<FieldInfo>& Fields() const;

  /// Throws Failure 3021 for a row, 3265 for a field that is none.
  Value At(std::size_t row, std::size_t field) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tevra
