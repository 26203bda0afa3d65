#include "care/clsCompareBD.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "care/FieldConversion.h"
#include "platform/system/StandardError.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

const IndexDef* KeyOf(const TableDef& table) {
  const auto key = std::find_if(table.indexes.begin(), table.indexes.end(),
                                [](const IndexDef& index) { return index.primary; });
  return key == table.indexes.end() ? nullptr : &*key;
}

bool SameNames(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const auto& x, const auto& y) { return EqualNoCase(x, y); });
}

bool SameIndex(const IndexDef& a, const IndexDef& b) {
  return a.unique == b.unique && SameNames(a.fields, b.fields) &&
         SameNames(a.descending, b.descending);
}

// What a stored value or a repeated one can cause; everything else is no matter of the data.
bool IsOfValues(const Failure& failure) {
  return failure.Number() == kValueNotAccepted || failure.Number() == kTypeMismatch ||
         failure.Number() == kOverflow;
}

}  // namespace

clsCompareBD::clsCompareBD(Connection source, Connection target)
    : target_(std::move(target)), sourceCatalogue_(std::move(source)), catalogue_(target_) {}

void clsCompareBD::ComparaBazeDate(const Progress& progress) {
  queries_ = catalogue_.Queries();
  const std::vector<TableDef> tables = sourceCatalogue_.Tables();
  int done = 0;
  for (const TableDef& table : tables) {
    if (!table.system) {
      catalogue_.HasTable(table.name) ? CompareTables(table) : ObjectExport(table);
    }
    Report(progress, ++done, static_cast<int>(tables.size()));
  }
  for (const QueryDef& query : sourceCatalogue_.Queries()) ExportQuery(query);
}

void clsCompareBD::CompareTables(const TableDef& source) {
  const std::string table = catalogue_.Table(source.name).name;
  for (const FieldDef& field : source.fields) {
    if (!catalogue_.Table(table).Find(field.name)) AddField(table, field);
  }
  const TableDef target = catalogue_.Table(table);
  std::vector<FieldDef> changed;
  for (const FieldDef& field : source.fields) {
    const FieldDef& old = *target.Find(field.name);
    const FieldDef wanted = CompareFields(table, field, old);
    if (!(wanted == old)) changed.push_back(wanted);
  }
  ModifyFields(table, changed);
  CompareKey(source, table);
  for (const IndexDef& index : source.indexes) {
    if (!index.primary) CompareIndex(table, index);
  }
}

// A new field has no values yet: that it is required or numbers the rows comes behind it.
void clsCompareBD::AddField(const std::string& table, const FieldDef& source) {
  FieldDef added = source;
  added.autoNumber = false;
  added.required = source.required && !source.defaultValue.empty();
  catalogue_.AddField(table, added);
  changes_.push_back("camp nou: " + table + "." + source.name);
  if (source.autoNumber) NumberRows(table, source);
}

void clsCompareBD::NumberRows(const std::string& table, const FieldDef& source) {
  target_.Execute("UPDATE [" + table + "] SET [" + source.name + "] = rowid");
}

// The field as it shall be; the target's own one when nothing changes. Whether it numbers its rows
// is a matter of the key.
FieldDef clsCompareBD::CompareFields(const std::string& table, const FieldDef& source,
                                     const FieldDef& target) {
  FieldDef wanted = target;
  wanted.defaultValue = source.defaultValue;
  wanted.allowZeroLength = source.allowZeroLength;
  wanted.required = source.required;
  if (source.type != target.type) {
    wanted.type = source.type;
    wanted.size = source.size;
    wanted.autoNumber = false;
  } else {
    wanted.size = std::max(source.size, target.size);
  }
  // A key keeps its fields required.
  const TableDef owner = catalogue_.Table(table);
  if (const IndexDef* key = KeyOf(owner)) {
    for (const std::string& name : key->fields) wanted.required |= EqualNoCase(name, target.name);
  }
  if (wanted == target) return target;
  const auto obstacle = FirstObstacle(target_, table, target, wanted);
  if (!obstacle) return wanted;
  Leave(source.type == target.type ? "CompareFields" : "ModifyField", {}, *obstacle);
  FieldDef rest = target;
  rest.defaultValue = source.type == target.type ? source.defaultValue : target.defaultValue;
  if (source.type == target.type) rest.size = wanted.size;
  return rest;
}

void clsCompareBD::ModifyFields(const std::string& table, const std::vector<FieldDef>& fields) {
  if (fields.empty()) return;
  const std::size_t leftBefore = left_.size();
  if (Try("ModifyField", table, [&] { catalogue_.AlterFields(table, fields); })) {
    for (const FieldDef& field : fields)
      changes_.push_back("camp schimbat: " + table + "." + field.name);
    return;
  }
  // Together they are refused; each alone tells which one it is.
  if (fields.size() == 1) return;
  left_.resize(leftBefore);
  for (const FieldDef& field : fields) ModifyField(table, field);
}

bool clsCompareBD::ModifyField(const std::string& table, const FieldDef& field) {
  const std::string name = table + "." + field.name;
  const bool done = Try("ModifyField", name, [&] { catalogue_.AlterField(table, field); });
  if (done) changes_.push_back("camp schimbat: " + name);
  return done;
}

void clsCompareBD::CompareKey(const TableDef& source, const std::string& table) {
  const IndexDef* wanted = KeyOf(source);
  if (!wanted) return;
  const TableDef target = catalogue_.Table(table);
  const IndexDef* key = KeyOf(target);
  if (key && !SameNames(key->fields, wanted->fields)) {
    return Leave("pCreatePK", table, Failure(kStatementError, "tabela are alta cheie"));
  }
  if (!key) {
    const bool made =
        Try("pCreatePK", table, [&] { catalogue_.CreatePrimaryKey(table, wanted->fields); });
    if (!made) return;
    changes_.push_back("cheie: " + table);
  }
  for (const FieldDef& field : source.fields) {
    FieldDef own = *catalogue_.Table(table).Find(field.name);
    if (!field.autoNumber || own.autoNumber || own.type != field.type) continue;
    own.autoNumber = true;
    ModifyField(table, own);
  }
}

void clsCompareBD::CompareIndex(const std::string& table, const IndexDef& source) {
  const TableDef target = catalogue_.Table(table);
  const auto same =
      std::find_if(target.indexes.begin(), target.indexes.end(), [&](const IndexDef& index) {
        return !index.primary && EqualNoCase(index.name, source.name);
      });
  const bool exists = same != target.indexes.end();
  if (exists && SameIndex(*same, source)) return;
  const bool made = Try("DeleteIDIndex", table + "." + source.name, [&] {
    if (exists) catalogue_.DropIndex(table, same->name);
    catalogue_.CreateIndex(table, source);
  });
  if (made) changes_.push_back("index: " + table + "." + source.name);
}

void clsCompareBD::ObjectExport(const TableDef& source) {
  const bool taken = std::any_of(queries_.begin(), queries_.end(), [&](const QueryDef& query) {
    return EqualNoCase(query.name, source.name);
  });
  if (taken) {
    return Leave("ObjectExport", source.name,
                 Failure(kStatementError, "o interogare are numele tabelei"));
  }
  catalogue_.CreateTable(source);
  changes_.push_back("tabela noua: " + source.name);
}

// One that is there keeps its text: somebody may have changed it on purpose.
void clsCompareBD::ExportQuery(const QueryDef& source) {
  const bool there = std::any_of(queries_.begin(), queries_.end(), [&](const QueryDef& query) {
    return EqualNoCase(query.name, source.name);
  });
  if (there) return;
  if (catalogue_.HasTable(source.name)) {
    return Leave("ObjectExport", source.name,
                 Failure(kStatementError, "o tabela are numele interogarii"));
  }
  catalogue_.CreateQuery(source);
  changes_.push_back("interogare noua: " + source.name);
}

// A change that the stored values refuse is taken back and reported.
bool clsCompareBD::Try(const char* routine, const std::string& what,
                       const std::function<void()>& change) {
  try {
    Transaction transaction(target_);
    change();
    transaction.Commit();
    return true;
  } catch (const Failure& failure) {
    if (!IsOfValues(failure)) throw;
    Leave(routine, what, failure);
    return false;
  }
}

void clsCompareBD::Leave(const char* routine, const std::string& what, const Failure& failure) {
  const std::string place = what.empty() ? std::string() : what + ": ";
  left_.push_back(StandardErrorText(Failure(failure.Number(), place + failure.Description()),
                                    {routine, "Class Module", "clsCompareBD", 1}));
}

}  // namespace tevra
