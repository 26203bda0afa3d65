#include "platform/data/Recordset.h"

#include <algorithm>

#include "platform/data/RecordsetState.h"
#include "platform/text/Strings.h"

namespace tevra {

namespace {

const Value kNull;

}  // namespace

Recordset Recordset::Open(const Connection& connection, const std::string& sql,
                          const Values& params, bool byPages,
                          const std::vector<std::string>& totalled) {
  auto state = std::make_shared<State>();
  state->rows = std::make_shared<detail::RowStore>();
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
  state->rows = std::make_shared<detail::RowStore>();
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
  const State& s = S();
  s.RequireField(index);
  return s.rows->fields[index];
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
  const detail::RowStore& rows = *S().rows;
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
  s.RequireField(field);
  if (position >= s.order.size()) throw Failure(kNoCurrentRecord, "No current record");
  return (*s.rows->ValuesOf(s.order[position]))[field];
}

const Value& Recordset::Get(std::size_t field) const {
  State& s = S();
  s.RequireField(field);
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
  s.order.Erase(s.at);
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
