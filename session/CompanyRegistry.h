// The registry of companies: the file Societat.XML in the directory of the databases.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"

namespace tevra {

/// The error number of a file that exists already.
inline constexpr long kFileExists = 58;

/// One company of the registry.
struct Company {
  std::string cod;       ///< one or two letters or digits, in capitals
  std::string denumire;  ///< the name, at most 50 characters
  std::string numeBd;    ///< its database's file name, without directory

  bool operator==(const Company&) const = default;
};

/// The companies of one directory, as loaded; Save writes changes to the file. Rows whose database
/// is missing and unknown columns of the file are kept. A directory may be written with any
/// separators, in any case, with or without a final separator.
class CompanyRegistry {
 public:
  /// True for one or two letters or digits, because a code becomes part of a file's name.
  static bool IsCode(const std::string& code);

  static bool Exists(const std::string& directory);

  /// Throws Failure 53 when there is no file, -2147467259 when it is damaged or lacks one of the
  /// three fields, 13 for a value that does not fit, with the file's name and the line.
  static CompanyRegistry Load(const std::string& directory);

  /// The greatest lengths of the three texts.
  struct Widths {
    int cod = 2;
    int denumire = 50;
    int numeBd = 15;
  };

  /// A registry without companies, not yet in a file.
  static CompanyRegistry Empty(const std::string& directory, const Widths& widths);
  static CompanyRegistry Empty(const std::string& directory) { return Empty(directory, Widths()); }

  /// Throws Failure 5 for a name that is empty, has more than 50 characters or some that no
  /// registry can hold.
  static void CheckName(const std::string& name);

  /// The name of the company 01 in the registry with which a directory begins.
  static constexpr const char* kNoName = "SOCIETATE";

  /// Writes a directory's first registry, with the company 01. Throws Failure 58 when there is a
  /// registry already, otherwise like Save.
  static void WriteDefault(const std::string& directory);

  /// All companies by code.
  std::vector<Company> Companies() const;

  /// The company with a code, without case.
  std::optional<Company> Find(const std::string& code) const;

  /// True when a company has this database, without case.
  bool Names(const std::string& database) const;

  /// Adds a company, its code in capitals, its name without blanks around it; it becomes the
  /// current row of Rows(), whose filter is lifted. Throws Failure 457 when the code is taken, 5
  /// for a code that is not one or two letters or digits, for a name that is empty, has more than
  /// 50 characters or some that no registry can hold, and for an empty database name.
  void Add(const Company& company);

  /// Gives the company of a code another name, without blanks around it. Throws Failure 3265 when
  /// there is no such company, 5 as CheckName.
  void Rename(const std::string& code, const std::string& name);

  /// Removes the company from the list (one row, if there are duplicates); its database stays.
  /// Throws Failure 3265 when there is no such row.
  void Remove(const Company& company);

  /// Restores the row that was removed last, with all its columns; it becomes the current one.
  void PutBack();

  /// Takes in what other programs have written to the file since it was loaded or saved here; names
  /// changed here and not yet saved stay so. The filter of Rows() is lifted. Before a Save, while
  /// the folder is locked, nobody's companies are lost. Throws Failure as Load; a file that is gone
  /// changes nothing.
  void Refresh();

  /// True when the list differs from the file as it was last read or written here.
  bool IsChanged() const { return Companies() != known_; }

  /// Writes all rows to the file, whole or not at all. Throws Failure 76, 70 or 61 with its name.
  void Save();

  /// The rows COD, DENUMIRE, NUMEBD by code, for a grid; all copies share position and filter.
  /// Companies, Find and Save use all rows, whatever the filter.
  Recordset Rows() const { return rows_; }

  /// The file's path, in the spelling that it has or will have.
  const std::filesystem::path& File() const { return file_; }

 private:
  CompanyRegistry(std::filesystem::path file, Recordset rows);
  Recordset AllRows() const;
  void StayAtAdded();
  void TakeNames(const std::vector<Company>& there);

  std::filesystem::path file_;
  Recordset rows_;
  Recordset removed_;           // the row removed last
  std::vector<Company> known_;  // the content of the file when it was last read or written here
};

}  // namespace tevra
