// Reads the texts of a dBase table.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tevra {

/// An open table; the file is never written.
class DbfTable {
 public:
  /// Throws Failure -2147467259 with the file's name when it is damaged or no table, 70 when it
  /// cannot be read.
  explicit DbfTable(const std::filesystem::path& file);

  int RecordCount() const;
  bool IsDeleted(int record) const;

  /// The number of a field, found without case. Throws Failure -2147467259 when there is none.
  int FieldIndex(const std::string& name) const;

  /// The maximum length of a field's text, in bytes of the table.
  int FieldWidth(int field) const;

  /// A field's text in UTF-8, without the blanks around it.
  std::string Text(int record, int field) const;

 private:
  struct Table;
  [[noreturn]] void Damaged(const std::string& reason) const;
  void CheckMeasures() const;

  std::filesystem::path file_;
  std::shared_ptr<Table> table_;
};

}  // namespace tevra
