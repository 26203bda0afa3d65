#include "platform/data/RecordsetState.h"

#include <algorithm>

#include "platform/text/Strings.h"

namespace tevra {

std::size_t Recordset::State::Current() const {
  if (!HasRow() || adding) throw Failure(kNoCurrentRecord, "No current record");
  return order[at];
}

const Values& Recordset::State::CurrentValues() {
  const std::size_t row = Current();
  if (!held || heldRow != row || heldLoads != rows->loads || heldWrites != rows->writes) {
    held = rows->ValuesOf(row);
    heldRow = row;
    heldLoads = rows->loads;
    heldWrites = rows->writes;
  }
  return *held;
}

void Recordset::State::RequireField(std::size_t index) const {
  if (index >= rows->fields.size())
    throw Failure(kItemNotFound, "Item not found: " + std::to_string(index));
}

std::size_t Recordset::State::IndexOf(const std::string& name) const {
  const auto& fields = rows->fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (EqualNoCase(fields[i].def.name, name)) return i;
  }
  throw Failure(kItemNotFound, "Item not found: " + name);
}

detail::FieldFinder Recordset::State::Finder() const {
  return [this](const std::string& name) { return IndexOf(name); };
}

detail::RowOrder Recordset::State::Arranged(const std::string& filterText,
                                            const std::string& sortText) const {
  const detail::Criteria criteria(filterText, Finder());
  const auto keys = detail::ParseSort(sortText, Finder());
  std::vector<std::size_t> asked = criteria.Fields();
  for (const auto& key : keys) asked.push_back(key.field);
  if (criteria.Empty() && keys.empty() && !rows->rows.AnyRemoved()) {
    return detail::RowOrder(rows->rows.size());
  }
  const detail::FieldReader reader(*rows, asked);
  std::vector<std::uint32_t> arranged;
  for (std::size_t i = 0; i < rows->rows.size(); ++i) {
    if (rows->rows[i].Removed()) continue;
    const auto valueOf = [&](std::size_t f) -> const Value& { return reader.At(i, f); };
    if (criteria.Empty() || criteria.Met(valueOf)) {
      arranged.push_back(static_cast<std::uint32_t>(i));
    }
  }
  if (keys.empty()) return detail::RowOrder(std::move(arranged));
  std::stable_sort(arranged.begin(), arranged.end(), [&](std::uint32_t a, std::uint32_t b) {
    for (const auto& key : keys) {
      const int c = CompareValues(reader.At(a, key.field), reader.At(b, key.field));
      if (c != 0) return key.descending ? c > 0 : c < 0;
    }
    return false;
  });
  return detail::RowOrder(std::move(arranged));
}

void Recordset::State::Arrange(const std::string& filterText, const std::string& sortText) {
  order = Arranged(filterText, sortText);
  filter = filterText;
  sort = sortText;
  at = 0;
  before = false;
  Note();
}

void Recordset::State::Note() {
  loads = rows->loads;
  changes = rows->changes;
}

void Recordset::State::Follow() {
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

void Recordset::State::GoTo(std::size_t row) {
  at = order.PlaceOf(row);
  before = false;
}

}  // namespace tevra
