#include "platform/data/RowTable.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tevra::detail {

RowTable::RowTable(std::size_t count)
    : count_(count), pages_((count + kPageRows - 1) / kPageRows) {}

const Row& RowTable::operator[](std::size_t row) const {
  static const Row kUnread;
  const std::unique_ptr<Page>& page = pages_[row / kPageRows];
  return page ? (*page)[row % kPageRows] : kUnread;
}

Row& RowTable::At(std::size_t row) {
  std::unique_ptr<Page>& page = pages_[row / kPageRows];
  if (!page) page = std::make_unique<Page>();
  return (*page)[row % kPageRows];
}

void RowTable::push_back(Row row) {
  if (count_ % kPageRows == 0) pages_.emplace_back();
  At(count_++) = std::move(row);
}

void RowTable::LetGo(std::size_t page) {
  if (!pages_[page]) return;
  const auto written = [](const Row& row) { return row.kept || row.state != RowState::Stored; };
  if (std::none_of(pages_[page]->begin(), pages_[page]->end(), written))
    return pages_[page].reset();
  for (Row& row : *pages_[page]) {
    if (!row.kept) row.values.reset();
  }
}

bool RowTable::AnyRemoved() const {
  const auto removed = [](const Row& row) { return row.Removed(); };
  return std::any_of(pages_.begin(), pages_.end(), [&](const std::unique_ptr<Page>& page) {
    return page && std::any_of(page->begin(), page->end(), removed);
  });
}

std::vector<std::uint32_t>& RowOrder::Listed() {
  if (!listed_) {
    listed_.emplace(count_);
    std::iota(listed_->begin(), listed_->end(), 0);
  }
  return *listed_;
}

void RowOrder::push_back(std::size_t row) {
  if (!listed_ && row == count_) {
    ++count_;
  } else {
    Listed().push_back(static_cast<std::uint32_t>(row));
  }
}

void RowOrder::Erase(std::size_t place) {
  std::vector<std::uint32_t>& rows = Listed();
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(place));
}

std::size_t RowOrder::PlaceOf(std::size_t row) const {
  if (!listed_) return std::min(row, count_);
  return static_cast<std::size_t>(std::find(listed_->begin(), listed_->end(), row) -
                                  listed_->begin());
}

}  // namespace tevra::detail
