#include "platform/data/Recordset.h"

#include <algorithm>
#include <map>
#include <numeric>

#include <sqlite3.h>

#include "platform/data/Criteria.h"
#include "platform/data/RecordsetRows.h"
#include "platform/text/Strings.h"

namespace tevra {

using detail::Row;
using detail::RowState;
using detail::RowStore;

struct Recordset::Rows : RowStore {};

struct Recordset::State {
  std::shared_ptr<Rows> rows;
  std::vector<std::size_t> order;  // the filtered rows in their order
  std::size_t at = 0;              // in `order`; order.size() is after the last
  bool before = false;             // before the first
  std::string filter;
  std::string sort;
  std::size_t loads = 0;  // of the rows when `order` was made
  std::size_t changes = 0;

  // The edits of the current row; a new row is not in `order` until it is written.
  std::map<std::size_t, Value> edits;
  bool adding = false;

  // The current row as first read here; changes are compared with it.
  detail::RowValues held;
  std::size_t heldRow = 0;
  std::size_t heldLoads = 0;
  std::size_t heldWrites = 0;

  bool HasRow() const { return adding || (!before && at < order.size()); }
  std::size_t Current() const {
    if (!HasRow() || adding) throw Failure(kNoCurrentRecord, "No current record");
    return order[at];
  }

  const Values& CurrentValues() {
    const std::size_t row = Current();
    if (!held || heldRow != row || heldLoads != rows->loads || heldWrites != rows->writes) {
      held = rows->ValuesOf(row);
      heldRow = row;
      heldLoads = rows->loads;
      heldWrites = rows->writes;
    }
    return *held;
  }

  std::size_t IndexOf(const std::string& name) const {
    const auto& fields = rows->fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (EqualNoCase(fields[i].def.name, name)) return i;
    }
    throw Failure(kItemNotFound, "Item not found: " + name);
  }

  detail::FieldFinder Finder() const {
    return [this](const std::string& name) { return IndexOf(name); };
  }

  std::vector<std::size_t> Arranged(const std::string& filterText,
                                    const std::string& sortText) const {
    const detail::Criteria criteria(filterText, Finder());
    const auto keys = detail::ParseSort(sortText, Finder());
    std::vector<std::size_t> asked = criteria.Fields();
    for (const auto& key : keys) asked.push_back(key.field);
    const detail::FieldReader reader(*rows, asked);
    std::vector<std::size_t> arranged;
    for (std::size_t i = 0; i < rows->rows.size(); ++i) {
      const RowState state = rows->rows[i].state;
      if (state == RowState::Deleted || state == RowState::Gone) continue;
      const auto valueOf = [&](std::size_t f) -> const Value& { return reader.At(i, f); };
      if (criteria.Empty() || criteria.Met(valueOf)) arranged.push_back(i);
    }
    if (keys.empty()) return arranged;
    std::stable_sort(arranged.begin(), arranged.end(), [&](std::size_t a, std::size_t b) {
      for (const auto& key : keys) {
        const int c = CompareValues(reader.At(a, key.field), reader.At(b, key.field));
        if (c != 0) return key.descending ? c > 0 : c < 0;
      }
      return false;
    });
    return arranged;
  }

  // A text that cannot be parsed changes nothing.
  void Arrange(const std::string& filterText, const std::string& sortText) {
    order = Arranged(filterText, sortText);
    filter = filterText;
    sort = sortText;
    at = 0;
    before = false;
    Note();
  }

  void Note() {
    loads = rows->loads;
    changes = rows->changes;
  }

  // Takes over changes that a clone of this recordset made to the shared rows.
  void Follow() {
    if (loads != rows->loads) {
      edits.clear();
      adding = false;
      Arrange(filter, sort);
    } else if (changes != rows->changes) {
      const bool beforeFirst = before;
      const std::size_t place = at;
      const std::size_t row = at < order.size() ? order[at] : rows->rows.size();
      order = Arranged(filter, sort);
      GoTo(row);
      if (row < rows->rows.size() && at == order.size()) at = std::min(place, order.size());
      before = beforeFirst;
      Note();
    }
  }

  void GoTo(std::size_t row) {
    const auto found = std::find(order.begin(), order.end(), row);
    at = static_cast<std::size_t>(found - order.begin());
    before = false;
  }
};

namespace {

const Value kNull;

}  // namespace

Recordset Recordset::Open(const Connection& connection, const std::string& sql,
                          const Values& params, bool byPages,
                          const std::vector<std::string>& totalled) {
  auto state = std::make_shared<State>();
  state->rows = std::make_shared<Rows>();
  state->rows->connection = connection;
  state->rows->sql = sql;
  state->rows->params = params;
  state->rows->byPages = byPages;
  state->rows->totalled = totalled;
  state->rows->Load();
  state->Arrange({}, {});
  return Recordset(state);
}

Recordset Connection::OpenRecordset(const std::string& sql, const Values& params) {
  return Recordset::Open(*this, sql, params, false, {});
}

Recordset Connection::OpenKeyset(const std::string& sql, const Values& params,
                                 const std::vector<std::string>& totalled) {
  return Recordset::Open(*this, sql, params, true, totalled);
}

Recordset Recordset::Create(std::vector<FieldInfo> fields) {
  auto state = std::make_shared<State>();
  state->rows = std::make_shared<Rows>();
  state->rows->fields = std::move(fields);
  return Recordset(state);
}

Recordset::State& Recordset::S() const {
  if (!s_) throw Failure(kObjectRequired, "Object required: the recordset is closed");
  s_->Follow();
  return *s_;
}

std::size_t Recordset::FieldCount() const {
  return S().rows->fields.size();
}

const FieldInfo& Recordset::Field(std::size_t index) const {
  const auto& fields = S().rows->fields;
  if (index >= fields.size())
    throw Failure(kItemNotFound, "Item not found: " + std::to_string(index));
  return fields[index];
}

std::size_t Recordset::FieldIndex(const std::string& name) const {
  return S().IndexOf(name);
}

std::optional<std::size_t> Recordset::FindField(const std::string& name) const {
  for (std::size_t i = 0; i < FieldCount(); ++i) {
    if (EqualNoCase(Field(i).def.name, name)) return i;
  }
  return std::nullopt;
}

double Recordset::Total(const std::string& field) const {
  const RowStore& rows = *S().rows;
  for (std::size_t i = 0; i < rows.totalled.size(); ++i) {
    if (EqualNoCase(rows.totalled[i], field)) return rows.totals[i];
  }
  throw Failure(kItemNotFound, "Item not found: " + field);
}

bool Recordset::Bof() const {
  return !S().adding && (S().before || S().order.empty());
}
bool Recordset::Eof() const {
  const State& s = S();
  return !s.adding && (s.order.empty() || (!s.before && s.at >= s.order.size()));
}
std::size_t Recordset::RecordCount() const {
  return S().order.size();
}

// Leaving a row drops its unwritten edits.
void Recordset::MoveFirst() {
  CancelUpdate();
  S().at = 0;
  S().before = false;
}

void Recordset::MoveLast() {
  CancelUpdate();
  S().at = S().order.empty() ? 0 : S().order.size() - 1;
  S().before = false;
}

void Recordset::MoveNext() {
  CancelUpdate();
  if (Eof()) throw Failure(kNoCurrentRecord, "No current record");
  if (S().before) {
    S().before = false;
    S().at = 0;
  } else {
    ++S().at;
  }
}

void Recordset::MovePrevious() {
  CancelUpdate();
  if (Bof()) throw Failure(kNoCurrentRecord, "No current record");
  if (S().at == 0) {
    S().before = true;
  } else {
    --S().at;
  }
}

std::size_t Recordset::Bookmark() const {
  return S().Current();
}

void Recordset::SetBookmark(std::size_t bookmark) {
  CancelUpdate();
  S().GoTo(bookmark);
  S().Current();
}

std::size_t Recordset::Position() const {
  S().Current();
  return S().at;
}

void Recordset::SetPosition(std::size_t position) {
  State& s = S();
  CancelUpdate();
  if (position >= s.order.size()) throw Failure(kNoCurrentRecord, "No current record");
  s.at = position;
  s.before = false;
}

Value Recordset::ValueAt(std::size_t position, std::size_t field) const {
  const State& s = S();
  Field(field);
  if (position >= s.order.size()) throw Failure(kNoCurrentRecord, "No current record");
  return (*s.rows->ValuesOf(s.order[position]))[field];
}

const Value& Recordset::Get(std::size_t field) const {
  State& s = S();
  Field(field);
  if (!s.HasRow()) throw Failure(kNoCurrentRecord, "No current record");
  if (const auto edit = s.edits.find(field); edit != s.edits.end()) return edit->second;
  return s.adding ? kNull : s.CurrentValues()[field];
}

const Value& Recordset::Get(const std::string& field) const {
  return Get(FieldIndex(field));
}

void Recordset::Set(std::size_t field, const Value& value) {
  State& s = S();
  if (!s.HasRow()) throw Failure(kNoCurrentRecord, "No current record");
  const FieldInfo& info = Field(field);
  if (!s.adding) s.CurrentValues();
  s.edits[field] = info.typed ? ConvertToField(value, info.def) : value;
}

void Recordset::Set(const std::string& field, const Value& value) {
  Set(FieldIndex(field), value);
}

void Recordset::AddNew() {
  CancelUpdate();
  S().adding = true;
}

bool Recordset::IsEditing() const {
  return S().adding || !S().edits.empty();
}

bool Recordset::IsAdding() const {
  return S().adding;
}

void Recordset::CancelUpdate() {
  S().edits.clear();
  S().adding = false;
}

void Recordset::Update() {
  State& s = S();
  if (!s.HasRow()) throw Failure(kNoCurrentRecord, "No current record");
  if (s.adding) {
    const std::size_t row = s.rows->Add(s.edits);
    s.adding = false;
    s.edits.clear();
    s.order.push_back(row);
    s.at = s.order.size() - 1;
    s.before = false;
    s.Note();
    return;
  }
  s.rows->Change(s.Current(), s.CurrentValues(), s.edits);
  s.edits.clear();
}

void Recordset::Delete() {
  State& s = S();
  const std::size_t row = s.Current();
  CancelUpdate();
  s.rows->Remove(row);
  s.order.erase(s.order.begin() + static_cast<std::ptrdiff_t>(s.at));
  s.Note();
}

void Recordset::Requery() {
  State& s = S();
  CancelUpdate();
  s.rows->Load();
  s.Arrange(s.filter, s.sort);
}

void Recordset::Disconnect() {
  S().rows->Disconnect();
}
bool Recordset::IsConnected() const {
  return S().rows->connection.IsOpen();
}
Connection Recordset::GetConnection() const {
  return S().rows->connection;
}

void Recordset::UpdateBatch(Connection& connection) {
  S().rows->WriteBatch(connection);
}

void Recordset::SetFilter(const std::string& criteria) {
  State& s = S();
  CancelUpdate();
  s.Arrange(criteria, s.sort);
}

void Recordset::SetSort(const std::string& order) {
  State& s = S();
  CancelUpdate();
  s.Arrange(s.filter, order);
}

const std::string& Recordset::Sort() const {
  return S().sort;
}

void Recordset::Find(const std::string& criteria, std::size_t skip) {
  State& s = S();
  CancelUpdate();
  const detail::Criteria wanted(criteria, s.Finder());
  const detail::FieldReader reader(*s.rows, wanted.Fields());
  if (s.before) s.at = 0;
  s.before = false;
  for (s.at = std::min(s.at + skip, s.order.size()); s.at < s.order.size(); ++s.at) {
    const std::size_t row = s.order[s.at];
    if (wanted.Met([&](std::size_t f) -> const Value& { return reader.At(row, f); })) return;
  }
}

Recordset Recordset::Clone() const {
  auto state = std::make_shared<State>(S());
  state->edits.clear();
  state->adding = false;
  state->at = 0;
  state->before = false;
  return Recordset(state);
}

}  // namespace tevra
