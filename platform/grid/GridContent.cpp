#include "platform/grid/GridContent.h"

#include <utility>

#include "platform/data/MoneySum.h"

namespace tevra {

GridContent::GridContent(Recordset rows, std::vector<Column> columns,
                         std::optional<std::vector<std::size_t>> places)
    : rows_(std::move(rows)), columns_(std::move(columns)), places_(std::move(places)) {
  count_ = places_ ? places_->size() : rows_.IsOpen() ? rows_.RecordCount() : 0;
}

Value GridContent::ValueAt(std::size_t row, std::size_t column) const {
  const auto& field = columns_.at(column).field;
  if (!field) return {};
  return rows_.ValueAt(places_ ? places_->at(row) : row, *field);
}

void GridContent::SumFooters() {
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (!columns_[column].footed) continue;
    MoneySum sum;
    for (std::size_t row = 0; row < count_; ++row) sum.Add(ValueAt(row, column));
    columns_[column].footer = ShownText(sum.Total(), columns_[column].shown);
  }
}

QString GridContent::TextAt(std::size_t row, std::size_t column) const {
  return ShownText(ValueAt(row, column), columns_.at(column).shown);
}

}  // namespace tevra
