#include "platform/data/Keyset.h"

#include <algorithm>
#include <unordered_map>

#include "platform/data/Recordset.h"
#include "platform/text/Strings.h"

namespace tevra::detail {

Keyset::Keyset(const std::shared_ptr<Database>& database, const std::string& rewritten,
               const Values& params, const std::vector<FieldInfo>& fields, std::size_t sourceCount)
    : database_(database), sql_(Trim(rewritten)), params_(params), fieldCount_(fields.size()) {
  if (!sql_.empty() && sql_.back() == ';') sql_.pop_back();
  for (const FieldInfo& field : fields) {
    defs_.push_back(field.def);
    typed_.push_back(field.typed);
  }
  defs_.resize(fieldCount_ + sourceCount);
  typed_.resize(fieldCount_ + sourceCount);
}

std::unique_ptr<Keyset> Keyset::Open(const std::shared_ptr<Database>& database,
                                     const std::string& rewritten, const Values& params,
                                     const std::vector<FieldInfo>& fields,
                                     const std::vector<dialect::Source>& sources,
                                     const std::vector<std::size_t>& totalled) {
  std::unique_ptr<Keyset> keyset(new Keyset(database, rewritten, params, fields, sources.size()));
  for (std::size_t source = 0; source < sources.size(); ++source) {
    if (keyset->ReadIds(source, totalled)) return keyset;
  }
  return nullptr;
}

std::string Keyset::IdColumn() const {
  return Quoted("__row" + std::to_string(source_ + 1));
}

// The statement with names for its columns. Names may repeat in a list; the places of its columns
// do not. What is not asked for the engine leaves out, tables that give nothing but names among it.
std::string Keyset::ListOf(const std::string& wanted) const {
  std::string names;
  for (std::size_t i = 0; i < fieldCount_; ++i) names += "c" + std::to_string(i) + ",";
  for (std::size_t i = fieldCount_; i < defs_.size(); ++i) {
    names += (i > fieldCount_ ? ",r" : "r") + std::to_string(i - fieldCount_);
  }
  return "WITH __list(" + names + ") AS (" + sql_ + ") SELECT " + wanted;
}

// The row id and some fields of all rows.
std::string Keyset::IdAnd(const std::vector<std::size_t>& fields) const {
  std::string wanted = "r" + std::to_string(source_);
  for (const std::size_t field : fields) wanted += ",c" + std::to_string(field);
  return ListOf(wanted + " FROM __list");
}

// Sums need no order, and in a join the engine drops that of the list: it then reads the rows as
// they lie in the file.
void Keyset::AddUp(const std::vector<std::size_t>& totalled) {
  if (totalled.empty()) return;
  std::string wanted;
  for (const std::size_t field : totalled) wanted += ",c" + std::to_string(field);
  Statement select(*database_, ListOf(wanted.substr(1) + " FROM (SELECT 1), __list"));
  select.Bind(params_);
  while (select.Step()) {
    for (std::size_t i = 0; i < totalled.size(); ++i) {
      totals_[i].Add(sqlite3_column_double(select.Get(), static_cast<int>(i)));  // Null is 0
    }
  }
}

bool Keyset::ReadIds(std::size_t source, const std::vector<std::size_t>& totalled) {
  source_ = source;
  ids_.clear();
  Statement select(*database_, IdAnd({}));
  select.Bind(params_);
  totals_.assign(totalled.size(), {});
  bool more = select.Step();
  // While a statement is open, another one of the connection sees the same state of the file.
  if (more) AddUp(totalled);
  for (sqlite3_stmt* row = select.Get(); more; more = select.Step()) {
    if (sqlite3_column_type(row, 0) == SQLITE_NULL) return false;
    ids_.push_back(sqlite3_column_int64(row, 0));
  }
  return ids_.AllDiffer();
}

Values Keyset::Missing(std::size_t row) const {
  Values values(defs_.size());
  values[fieldCount_ + source_] = ids_[row];
  return values;
}

std::vector<Values> Keyset::Fetch(const std::vector<std::size_t>& rows) {
  if (!page_) {
    std::string marks = "?";
    for (std::size_t i = 1; i < kPageRows; ++i) marks += ",?";
    page_ = std::make_unique<Statement>(
        *database_, "SELECT * FROM (" + sql_ + ") WHERE " + IdColumn() + " IN (" + marks + ")");
  }
  Values bound = params_;
  std::unordered_map<std::int64_t, std::size_t> places;
  std::vector<Values> fetched;
  for (const std::size_t row : rows) {
    bound.push_back(ids_[row]);
    places[ids_[row]] = fetched.size();
    fetched.push_back(Missing(row));
  }
  bound.resize(params_.size() + kPageRows);
  const ResetAtEnd atEnd{*page_};
  page_->Bind(bound);
  while (page_->Step()) {
    const Value id = page_->Column(static_cast<int>(fieldCount_ + source_));
    Values& values = fetched[places.at(id.Whole())];
    for (std::size_t i = 0; i < defs_.size(); ++i) {
      values[i] = page_->Column(static_cast<int>(i), typed_[i] ? &defs_[i] : nullptr);
    }
  }
  return fetched;
}

std::vector<Values> Keyset::Scan(const std::vector<std::size_t>& fields) {
  std::unordered_map<std::int64_t, std::size_t> rowOf;
  rowOf.reserve(ids_.size());
  for (std::size_t row = 0; row < ids_.size(); ++row) rowOf[ids_[row]] = row;
  Statement select(*database_, IdAnd(fields));
  select.Bind(params_);
  std::vector<Values> scanned(ids_.size(), Values(fields.size()));
  while (select.Step()) {
    const auto found = rowOf.find(select.Column(0).Whole());
    if (found == rowOf.end()) continue;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const std::size_t field = fields[i];
      scanned[found->second][i] =
          select.Column(static_cast<int>(i) + 1, typed_[field] ? &defs_[field] : nullptr);
    }
  }
  return scanned;
}

void Keyset::Append(const Values& values) {
  ids_.push_back(0);
  Follow(ids_.size() - 1, values);
}

void Keyset::Follow(std::size_t row, const Values& values) {
  const Value& id = values[fieldCount_ + source_];
  if (!id.IsNull()) ids_.Set(row, id.Whole());
}

}  // namespace tevra::detail
