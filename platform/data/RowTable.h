// The rows of a recordset, and the order in which it shows them. A long list holds neither a value
// nor a place for rows that nobody looked at.
// For the data layer's own sources only.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/data/Value.h"

namespace tevra::detail {

enum class RowState {
  Stored,   // as in the file, or in memory as loaded
  Added,    // in memory, not in the file
  Changed,  // in memory, `before` is what the file has
  Deleted,  // in memory, still in the file
  Gone,     // deleted everywhere
};

/// The fields' values, then a hidden row id for each source.
using RowValues = std::shared_ptr<const Values>;

struct Row {
  RowValues values;  // empty until a row of a long list is looked at
  RowValues before;
  RowState state = RowState::Stored;
  bool kept = false;  // written here; the statement may no longer return it

  bool Removed() const { return state == RowState::Deleted || state == RowState::Gone; }
};

/// Rows by number, in pages that exist once one of their rows is written to.
class RowTable {
 public:
  static constexpr std::size_t kPageRows = 64;

  explicit RowTable(std::size_t count = 0);
  std::size_t size() const { return count_; }
  const Row& operator[](std::size_t row) const;
  Row& At(std::size_t row);
  void push_back(Row row);
  /// Forgets the values of a page's rows, except those written here.
  void LetGo(std::size_t page);
  bool AnyRemoved() const;

 private:
  using Page = std::array<Row, kPageRows>;
  std::size_t count_;
  std::vector<std::unique_ptr<Page>> pages_;
};

/// Row numbers in the order of a recordset. All rows as they come take no memory.
class RowOrder {
 public:
  /// The rows from 0 to `count` - 1.
  explicit RowOrder(std::size_t count = 0) : count_(count) {}
  explicit RowOrder(std::vector<std::uint32_t> rows) : listed_(std::move(rows)) {}

  std::size_t size() const { return listed_ ? listed_->size() : count_; }
  bool empty() const { return size() == 0; }
  std::size_t operator[](std::size_t place) const { return listed_ ? (*listed_)[place] : place; }
  void push_back(std::size_t row);
  void Erase(std::size_t place);
  /// The place of a row; size() when it has none.
  std::size_t PlaceOf(std::size_t row) const;

 private:
  std::vector<std::uint32_t>& Listed();

  std::size_t count_ = 0;
  std::optional<std::vector<std::uint32_t>> listed_;
};

}  // namespace tevra::detail
