#include "platform/data/RowIds.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tevra::detail {

RowIds::Block::Block(const Ids& ids) : least_(*std::min_element(ids.begin(), ids.end())) {
  const std::int64_t greatest = *std::max_element(ids.begin(), ids.end());
  const std::uint64_t range =
      static_cast<std::uint64_t>(greatest) - static_cast<std::uint64_t>(least_);
  if (range <= std::numeric_limits<std::uint16_t>::max()) {
    Pack<std::uint16_t>(ids);
  } else if (range <= std::numeric_limits<std::uint32_t>::max()) {
    Pack<std::uint32_t>(ids);
  } else {
    least_ = 0;
    distances_ = ids;
  }
}

template <class Distance>
void RowIds::Block::Pack(const Ids& ids) {
  std::vector<Distance> distances;
  distances.reserve(ids.size());
  for (const std::int64_t id : ids) distances.push_back(static_cast<Distance>(id - least_));
  distances_ = std::move(distances);
}

std::int64_t RowIds::Block::At(std::size_t place) const {
  return least_ +
         std::visit(
             [place](const auto& distances) { return static_cast<std::int64_t>(distances[place]); },
             distances_);
}

RowIds::Ids RowIds::Block::All() const {
  Ids ids;
  ids.reserve(kBlock);
  for (std::size_t i = 0; i < kBlock; ++i) ids.push_back(At(i));
  return ids;
}

std::int64_t RowIds::operator[](std::size_t row) const {
  const std::size_t block = row / kBlock;
  return block < blocks_.size() ? blocks_[block].At(row % kBlock) : last_[row % kBlock];
}

void RowIds::push_back(std::int64_t id) {
  last_.push_back(id);
  if (last_.size() < kBlock) return;
  blocks_.emplace_back(last_);
  last_.clear();
}

void RowIds::Set(std::size_t row, std::int64_t id) {
  const std::size_t block = row / kBlock;
  if (block == blocks_.size()) {
    last_[row % kBlock] = id;
    return;
  }
  Ids ids = blocks_[block].All();
  ids[row % kBlock] = id;
  blocks_[block] = Block(ids);
}

void RowIds::clear() {
  blocks_.clear();
  last_.clear();
}

template <class See>
void RowIds::ForEach(See see) const {
  for (const Block& block : blocks_) {
    for (const std::int64_t id : block.All()) see(id);
  }
  for (const std::int64_t id : last_) see(id);
}

// Most ids of a table lie close together: a mark for each number between the least and the greatest
// one. Where they do not, a sorted copy tells.
bool RowIds::AllDiffer() const {
  constexpr std::uint64_t kMarksForAnId = 32;
  std::int64_t least = std::numeric_limits<std::int64_t>::max();
  std::int64_t greatest = std::numeric_limits<std::int64_t>::min();
  ForEach([&](std::int64_t id) {
    least = std::min(least, id);
    greatest = std::max(greatest, id);
  });
  if (size() < 2) return true;
  const std::uint64_t range =
      static_cast<std::uint64_t>(greatest) - static_cast<std::uint64_t>(least);
  if (range / kMarksForAnId < size()) {
    std::vector<bool> seen(range + 1);
    bool differ = true;
    ForEach([&](std::int64_t id) {
      std::vector<bool>::reference mark = seen[static_cast<std::size_t>(id - least)];
      if (mark) differ = false;
      mark = true;
    });
    return differ;
  }
  Ids sorted;
  sorted.reserve(size());
  ForEach([&](std::int64_t id) { sorted.push_back(id); });
  std::sort(sorted.begin(), sorted.end());
  return std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
}

}  // namespace tevra::detail
