#include "session/CompanyRegistry.h"

#include <algorithm>

#include "platform/rowset/Rowset.h"
#include "platform/rowset/XmlReader.h"
#include "platform/system/Paths.h"
#include "platform/text/FailureText.h"
#include "platform/text/Invariant.h"
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
  // An empty directory would give a file in the root directory.
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
  CompanyRegistry::CheckName(company.denumire);
  if (company.numeBd.empty()) {
    throw Failure(kInvalidArgument, "Societatea nu are baza de date: " + code);
  }
}

Company CurrentOf(const Recordset& rows) {
  return {rows.Get(kCode).TextOrEmpty(), rows.Get(kName).TextOrEmpty(),
          rows.Get(kDatabase).TextOrEmpty()};
}

// A company is identified by its code and its database; its name may change.
bool SameCompany(const Company& one, const Company& other) {
  return EqualNoCase(one.cod, other.cod) && EqualNoCase(one.numeBd, other.numeBd);
}

// Each row of `taken` removes one equal row, so that duplicate rows remain duplicate.
std::vector<Company> Without(std::vector<Company> all, const std::vector<Company>& taken) {
  for (const Company& company : taken) {
    const auto same = [&](const Company& each) { return SameCompany(each, company); };
    const auto found = std::find_if(all.begin(), all.end(), same);
    if (found != all.end()) all.erase(found);
  }
  return all;
}

template <class Wanted>
bool FindRow(Recordset& rows, Wanted wanted) {
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    if (wanted(CurrentOf(rows))) return true;
  }
  return false;
}

bool FindRow(Recordset& rows, const Company& company) {
  return FindRow(rows, [&](const Company& each) { return each == company; });
}

bool FindSame(Recordset& rows, const Company& company) {
  return FindRow(rows, [&](const Company& each) { return SameCompany(each, company); });
}

// The fields that both recordsets have.
void CopyRow(const Recordset& from, Recordset& to) {
  to.AddNew();
  for (std::size_t i = 0; i < to.FieldCount(); ++i) {
    const auto field = from.FindField(to.Field(i).def.name);
    if (field) to.Set(i, from.Get(*field));
  }
  to.Update();
}

bool FindCode(Recordset& rows, const std::string& code) {
  return FindRow(rows, [&](const Company& each) { return EqualNoCase(each.cod, code); });
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
  CompanyRegistry registry(file, LoadRowset(file));
  registry.known_ = registry.Companies();
  return registry;
}

CompanyRegistry CompanyRegistry::Empty(const std::string& directory, const Widths& widths) {
  return {FileIn(directory),
          Recordset::Create({TextField(kCode, widths.cod), TextField(kName, widths.denumire),
                             TextField(kDatabase, widths.numeBd)})};
}

void CompanyRegistry::CheckName(const std::string& name) {
  const std::size_t length = Len(Trim(name));
  if (length == 0 || length > kLongestName) {
    throw Failure(kInvalidArgument, "Denumirea societatii are intre 1 si 50 de caractere");
  }
  // XML cannot represent these characters.
  const auto isControl = [](unsigned char c) {
    return c < ' ' && c != '\t' && c != '\n' && c != '\r';
  };
  if (!IsValidUtf8(name) || std::any_of(name.begin(), name.end(), isControl)) {
    throw Failure(kInvalidArgument, "Denumirea societatii contine caractere nepermise");
  }
}

void CompanyRegistry::WriteDefault(const std::string& directory) {
  CompanyRegistry registry = Empty(directory);
  if (Exists(directory)) {
    throw Failure(kFileExists, "File already exists: " + registry.file_.filename().string(),
                  registry.file_.string());
  }
  registry.Add({"01", kNoName, "Kelnar01.mdb"});
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

bool CompanyRegistry::Names(const std::string& database) const {
  const std::vector<Company> companies = Companies();
  return std::any_of(companies.begin(), companies.end(),
                     [&](const Company& company) { return EqualNoCase(company.numeBd, database); });
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
  StayAtAdded();
}

void CompanyRegistry::StayAtAdded() {
  const std::size_t added = rows_.Bookmark();
  rows_.SetSort(kCode);
  rows_.SetBookmark(added);
}

void CompanyRegistry::Rename(const std::string& code, const std::string& name) {
  CheckName(name);
  rows_.SetFilter("");
  if (!FindCode(rows_, code)) {
    throw Failure(kItemNotFound, "Nu exista societatea cu codul " + code);
  }
  rows_.Set(kName, Trim(name));
  rows_.Update();
}

void CompanyRegistry::Remove(const Company& company) {
  Recordset rows = AllRows();
  if (!FindRow(rows, company) && !FindSame(rows, company)) {
    throw Failure(kItemNotFound, "Nu exista societatea cu codul " + company.cod);
  }
  std::vector<FieldInfo> fields;
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) fields.push_back(rows.Field(i));
  removed_ = Recordset::Create(fields);
  CopyRow(rows, removed_);
  const std::size_t doomed = rows.Bookmark();
  rows_.SetFilter("");
  rows_.SetBookmark(doomed);
  rows_.Delete();
}

void CompanyRegistry::PutBack() {
  Invariant(removed_.IsOpen() && removed_.RecordCount() == 1, "nu s-a scos nicio societate");
  rows_.SetFilter("");
  CopyRow(removed_, rows_);
  StayAtAdded();
}

void CompanyRegistry::Refresh() {
  if (!std::filesystem::exists(file_)) return;
  CompanyRegistry now(file_, LoadRowset(file_));
  const std::vector<Company> there = now.Companies();
  rows_.SetFilter("");
  for (const Company& gone : Without(known_, there)) {
    if (FindSame(rows_, gone)) rows_.Delete();
  }
  for (const Company& added : Without(there, known_)) {
    if (!Find(added.cod) && FindRow(now.rows_, added)) CopyRow(now.rows_, rows_);
  }
  TakeNames(there);
  rows_.SetSort(kCode);
  known_ = there;
}

// Takes over a name that another program changed, unless it was changed here too.
void CompanyRegistry::TakeNames(const std::vector<Company>& there) {
  for (const Company& before : known_) {
    const auto renamed = std::find_if(there.begin(), there.end(), [&](const Company& each) {
      return SameCompany(each, before) && each.denumire != before.denumire;
    });
    if (renamed == there.end() || !FindRow(rows_, before)) continue;
    rows_.Set(kName, renamed->denumire);
    rows_.Update();
  }
}

void CompanyRegistry::Save() {
  Recordset rows = AllRows();
  rows.SetSort(kCode);
  SaveRowset(rows, file_);
  known_ = Companies();
}

}  // namespace tevra
