#include "platform/data/Keyset.h"

#include <algorithm>
#include <functional>
#include <unordered_map>

#include "platform/data/Recordset.h"
#include "platform/text/Strings.h"

namespace tevra::detail {

namespace {

// Most lists come in the order of their ids, one way or the other.
bool AllDiffer(std::vector<std::int64_t> ids) {
  const auto nowhere = [&ids](auto follows) {
    return std::adjacent_find(ids.begin(), ids.end(), follows) == ids.end();
  };
  if (nowhere(std::greater_equal<>()) || nowhere(std::less_equal<>())) return true;
  std::sort(ids.begin(), ids.end());
  return std::adjacent_find(ids.begin(), ids.end()) == ids.end();
}

}  // namespace

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

// The row id and some fields of all rows. Names may repeat in a list; the places of its columns do
// not. What is not asked for the engine leaves out, tables that give nothing but names among it.
std::string Keyset::SelectOf(const std::vector<std::size_t>& fields) const {
  std::string names;
  for (std::size_t i = 0; i < fieldCount_; ++i) names += "c" + std::to_string(i) + ",";
  for (std::size_t i = fieldCount_; i < defs_.size(); ++i) {
    names += (i > fieldCount_ ? ",r" : "r") + std::to_string(i - fieldCount_);
  }
  std::string wanted = "r" + std::to_string(source_);
  for (const std::size_t field : fields) wanted += ",c" + std::to_string(field);
  return "WITH __list(" + names + ") AS (" + sql_ + ") SELECT " + wanted + " FROM __list";
}

bool Keyset::ReadIds(std::size_t source, const std::vector<std::size_t>& totalled) {
  source_ = source;
  ids_.clear();
  totals_.assign(totalled.size(), {});
  Statement select(*database_, SelectOf(totalled));
  select.Bind(params_);
  sqlite3_stmt* row = select.Get();
  while (select.Step()) {
    if (sqlite3_column_type(row, 0) == SQLITE_NULL) return false;
    ids_.push_back(sqlite3_column_int64(row, 0));
    for (std::size_t i = 0; i < totalled.size(); ++i) {
      totals_[i].Add(sqlite3_column_double(row, static_cast<int>(i) + 1));  // Null is 0
    }
  }
  return AllDiffer(ids_);
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
  Statement select(*database_, SelectOf(fields));
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
  if (!id.IsNull()) ids_[row] = id.Whole();
}

}  // namespace tevra::detail
