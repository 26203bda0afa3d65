#include "session/CompanyRegistry.h"

#include <algorithm>

#include "platform/rowset/Rowset.h"
#include "platform/rowset/XmlReader.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

constexpr const char* kFileName = "Societat.XML";
constexpr const char* kTable = "Societat";
constexpr const char* kCode = "COD";
constexpr const char* kName = "DENUMIRE";
constexpr const char* kDatabase = "NUMEBD";

constexpr std::size_t kLongestCode = 2;
constexpr std::size_t kLongestName = 50;

constexpr long kFileExists = 58;
constexpr long kAlreadyThere = 457;

FieldInfo TextField(const char* name, int size) {
  FieldInfo field;
  field.def.name = name;
  field.def.size = size;
  field.baseTable = kTable;
  field.baseColumn = name;
  field.typed = true;
  return field;
}

std::string WrittenName(const std::string& directory) {
  return directory + "\\" + kFileName;
}

std::filesystem::path FileIn(const std::string& directory) {
  // Without a directory the name would be one at the top of the disk.
  if (Trim(directory).empty()) throw ValueFailure(kPathNotFound);
  return paths::Resolve(WrittenName(directory));
}

bool IsLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

void CheckCompany(const Company& company) {
  const std::string& code = company.cod;
  if (!CompanyRegistry::IsCode(code)) {
    throw Failure(kInvalidArgument, "Codul societatii are una sau doua litere sau cifre: " + code);
  }
  const std::size_t length = Len(Trim(company.denumire));
  if (length == 0 || length > kLongestName) {
    throw Failure(kInvalidArgument, "Denumirea societatii are intre 1 si 50 de caractere");
  }
  if (company.numeBd.empty()) {
    throw Failure(kInvalidArgument, "Societatea nu are baza de date: " + code);
  }
}

Company CurrentOf(const Recordset& rows) {
  return {rows.Get(kCode).TextOrEmpty(), rows.Get(kName).TextOrEmpty(),
          rows.Get(kDatabase).TextOrEmpty()};
}

bool FindCode(Recordset& rows, const std::string& code) {
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    if (EqualNoCase(rows.Get(kCode).TextOrEmpty(), code)) return true;
  }
  return false;
}

}  // namespace

CompanyRegistry::CompanyRegistry(std::filesystem::path file, Recordset rows)
    : file_(std::move(file)), rows_(std::move(rows)) {
  for (const char* field : {kCode, kName, kDatabase}) {
    if (rows_.FindField(field)) continue;
    throw Failure(kNotReadable,
                  file_.filename().string() + ": no registry of companies, it lacks " + field,
                  file_.string());
  }
  rows_.SetSort(kCode);
}

bool CompanyRegistry::IsCode(const std::string& code) {
  return !code.empty() && code.size() <= kLongestCode &&
         std::all_of(code.begin(), code.end(), IsLetterOrDigit);
}

bool CompanyRegistry::Exists(const std::string& directory) {
  return !Trim(directory).empty() && paths::FileExists(WrittenName(directory));
}

CompanyRegistry CompanyRegistry::Load(const std::string& directory) {
  const std::filesystem::path file = FileIn(directory);
  return {file, LoadRowset(file)};
}

CompanyRegistry CompanyRegistry::Empty(const std::string& directory) {
  return {FileIn(directory),
          Recordset::Create({TextField(kCode, 2), TextField(kName, 50), TextField(kDatabase, 15)})};
}

void CompanyRegistry::WriteDefault(const std::string& directory) {
  CompanyRegistry registry = Empty(directory);
  if (Exists(directory)) {
    throw Failure(kFileExists, "File already exists: " + registry.file_.filename().string(),
                  registry.file_.string());
  }
  registry.Add({"01", "SOCIETATE", "Kelnar01.mdb"});
  registry.Save();
}

Recordset CompanyRegistry::AllRows() const {
  Recordset rows = rows_.Clone();
  rows.SetFilter("");
  return rows;
}

std::vector<Company> CompanyRegistry::Companies() const {
  std::vector<Company> companies;
  Recordset rows = AllRows();
  rows.SetSort(kCode);
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) companies.push_back(CurrentOf(rows));
  return companies;
}

std::optional<Company> CompanyRegistry::Find(const std::string& code) const {
  Recordset rows = AllRows();
  if (!FindCode(rows, code)) return std::nullopt;
  return CurrentOf(rows);
}

void CompanyRegistry::Add(const Company& company) {
  CheckCompany(company);
  const std::string code = UCase(company.cod);
  if (Find(code)) {
    throw Failure(kAlreadyThere, "Codul de societate " + code + " exista deja");
  }
  rows_.SetFilter("");
  rows_.AddNew();
  try {
    rows_.Set(kCode, code);
    rows_.Set(kName, Trim(company.denumire));
    rows_.Set(kDatabase, company.numeBd);
    rows_.Update();
  } catch (const Failure&) {
    rows_.CancelUpdate();
    throw;
  }
  const std::size_t added = rows_.Bookmark();
  rows_.SetSort(kCode);
  rows_.SetBookmark(added);
}

void CompanyRegistry::Remove(const std::string& code) {
  Recordset rows = AllRows();
  if (!FindCode(rows, code)) {
    throw Failure(kItemNotFound, "Nu exista societatea cu codul " + code);
  }
  const std::size_t doomed = rows.Bookmark();
  rows_.SetFilter("");
  rows_.SetBookmark(doomed);
  rows_.Delete();
}

void CompanyRegistry::Save() const {
  Recordset rows = AllRows();
  rows.SetSort(kCode);
  SaveRowset(rows, file_);
}

}  // namespace tevra
