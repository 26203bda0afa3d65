#include "session/OlderFiles.h"

#include <algorithm>
#include <vector>

#include "platform/data/FilePassword.h"
#include "platform/system/Paths.h"
#include "platform/system/StandardError.h"
#include "platform/text/Strings.h"
#include "session/DatabaseFiles.h"
#include "session/DbfTable.h"
#include "session/KeptFile.h"
#include "session/Module1.h"

namespace fs = std::filesystem;

namespace tevra {

namespace {

constexpr const char* kOlderRegistry = "Societat.DBF";
constexpr const char* kOlderPassword = "ZRP3618";
constexpr const char* kDatabaseField = "NUMEBD";

Value TextOrNull(const std::string& text) {
  return text.empty() ? Value() : Value(text);
}

Connection OpenAlone(const fs::path& file, const char* password) {
  return Connection("Data Source=" + file.string() + ";Mode=Share Exclusive;PWD=" + password);
}

// A copy made from a restored backup may already have the current password.
Connection OpenOlder(const fs::path& copy) {
  try {
    return OpenAlone(copy, kOlderPassword);
  } catch (const Failure&) {
    return OpenAlone(copy, kFilePassword);
  }
}

// "01" of "Tevra01.mdb".
std::string CodeOf(const std::string& olderName) {
  constexpr std::size_t kWord = 5;
  constexpr std::size_t kExtension = 4;
  const std::size_t length = Len(olderName);
  if (length <= kWord + kExtension) return {};
  return Mid(olderName, kWord + 1, length - kWord - kExtension);
}

/// Converts an older database to the current naming; returns the new name.
std::string ChangeDatabase(const CompanyRegistry& registry, const std::string& directory,
                           const std::string& olderName) {
  const std::string code = CodeOf(olderName);
  // A longer code could lead out of the directory, and an empty one would name the template.
  if (!CompanyRegistry::IsCode(code)) {
    throw Failure(kInvalidArgument, "Numele bazei de date nu are un cod de societate");
  }
  const std::string name = "Kelnar" + code + ".MDB";
  if (registry.Names(name))
    throw Failure(kFileExists, name + " este baza de date a altei societati");
  // It may hold newer work, where the registry that named it was lost.
  const fs::path target = FileIn(directory, name);
  std::optional<KeptFile> before;
  if (fs::is_regular_file(target)) before.emplace(target);
  OverwriteWithCopy(FileIn(directory, olderName), target, [](const fs::path& copy) {
    Connection connection = OpenOlder(copy);
    SetFilePassword(connection, kFilePassword);
  });
  if (before) before->Keep();
  return name;
}

struct Renamed {
  std::size_t row;
  std::string before;
};

void Rename(Recordset& rows, std::size_t row, const std::string& database) {
  rows.SetBookmark(row);
  rows.Set(kDatabaseField, database);
  rows.Update();
}

}  // namespace

bool HasOlderRegistry(const std::string& directory) {
  return paths::FileExists(directory + "\\" + kOlderRegistry);
}

void ConvertOlderRegistry(const std::string& directory) {
  const DbfTable table(FileIn(directory, kOlderRegistry));
  const auto width = [&](const char* field, int least) {
    return std::max(table.FieldWidth(table.FieldIndex(field)), least);
  };
  const CompanyRegistry::Widths usual;
  CompanyRegistry registry =
      CompanyRegistry::Empty(directory, {width("COD", usual.cod), width("DENUMIRE", usual.denumire),
                                         width(kDatabaseField, usual.numeBd)});
  Recordset rows = registry.Rows();
  std::vector<int> fields;
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    fields.push_back(table.FieldIndex(rows.Field(i).def.name));
  }
  for (int record = 0; record < table.RecordCount(); ++record) {
    if (table.IsDeleted(record)) continue;
    rows.AddNew();
    bool blank = true;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const std::string text = table.Text(record, fields[i]);
      blank = blank && text.empty();
      rows.Set(i, TextOrNull(text));
    }
    if (blank) {
      rows.CancelUpdate();
    } else {
      rows.Update();
    }
  }
  registry.Save();
}

std::optional<Failure> pChangeDatabases(CompanyRegistry& registry, const std::string& directory) {
  std::optional<Failure> first;
  const auto told = [&first](const std::string& name, const Failure& failure) {
    if (first) return;
    const std::string description = failure.Description();
    const bool named = LikeNoCase(description, "*" + name + "*");
    first = Failure(failure.Number(), named ? description : name + ": " + description,
                    failure.Source());
  };
  Recordset rows = registry.Rows().Clone();
  rows.SetFilter("NumeBD Like 'Tevra*'");
  std::vector<Renamed> older;
  for (; !rows.Eof(); rows.MoveNext()) {
    older.push_back({rows.Bookmark(), rows.Get(kDatabaseField).TextOrEmpty()});
  }
  rows.SetFilter("");
  std::vector<Renamed> renamed;
  for (const Renamed& company : older) {
    try {
      Rename(rows, company.row, ChangeDatabase(registry, directory, company.before));
      renamed.push_back(company);
    } catch (const std::exception&) {
      told(company.before, CaughtFailure());
    }
  }
  if (renamed.empty()) return first;
  try {
    registry.Save();
  } catch (const std::exception&) {
    told("Societat.XML", CaughtFailure());
    // If the registry did not name the new database, the next start would convert the old one again
    // and replace the work done meanwhile.
    for (const Renamed& company : renamed) Rename(rows, company.row, company.before);
  }
  return first;
}

}  // namespace tevra
